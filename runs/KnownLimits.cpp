#include "KnownLimits.h"

#include "Hash.h"

#include <algorithm>
#include <cmath>

namespace ZYN {

namespace {

using Texts = std::vector<std::pair<std::uint32_t, std::string>>;

bool IsSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

Texts::const_iterator Find(const Texts& texts, std::uint32_t position)
{
    const auto at = std::lower_bound(texts.begin(), texts.end(), position,
                                     [](const auto& text, std::uint32_t p) { return text.first < p; });
    return at != texts.end() && at->first == position ? at : texts.end();
}

const std::string* TextAt(const Texts& texts, std::uint32_t position)
{
    const auto at = Find(texts, position);
    return at == texts.end() ? nullptr : &at->second;
}

/// \param text may be nothing, as a text or a view
template <class Text>
bool IsText(const Texts& texts, std::uint32_t position, const Text& text)
{
    const std::string* const known = texts.empty() ? nullptr : TextAt(texts, position);
    return known ? text && *known == *text : !text;
}

void Place(Texts& texts, std::uint32_t position, const std::optional<std::string>& text)
{
    if (const auto at = Find(texts, position); at != texts.end())
        texts.erase(at);
    if (!text)
        return;
    const auto behind = std::lower_bound(texts.begin(), texts.end(), position,
                                         [](const auto& one, std::uint32_t p) { return one.first < p; });
    texts.insert(behind, {position, *text});
}

template <class Limits>
bool IsSameAt(const RunLimits& set, std::uint32_t p, const Limits& limits)
{
    return IsSame(set.lower[p], limits.lower) && IsSame(set.upper[p], limits.upper) &&
           set.lowerOperator[p] == limits.lowerOperator && set.upperOperator[p] == limits.upperOperator &&
           IsSame(set.nominal[p], limits.nominal) && set.inverted[p] == limits.inverted &&
           IsText(set.lowerTexts, p, limits.lowerText) && IsText(set.upperTexts, p, limits.upperText);
}

KeptLimits At(const RunLimits& set, std::uint32_t p)
{
    KeptLimits limits;
    limits.lower = set.lower[p];
    limits.upper = set.upper[p];
    limits.nominal = set.nominal[p];
    limits.lowerOperator = set.lowerOperator[p];
    limits.upperOperator = set.upperOperator[p];
    if (const std::string* const text = TextAt(set.lowerTexts, p))
        limits.lowerText = *text;
    if (const std::string* const text = TextAt(set.upperTexts, p))
        limits.upperText = *text;
    limits.inverted = set.inverted[p];
    return limits;
}

RunLimits NoLimits(std::size_t size)
{
    RunLimits set;
    set.lower.assign(size, RunItemLimits::None);
    set.upper.assign(size, RunItemLimits::None);
    set.nominal.assign(size, RunItemLimits::None);
    set.lowerOperator.resize(size);
    set.upperOperator.resize(size);
    set.inverted.resize(size);
    return set;
}

void Put(RunLimits& set, std::uint32_t p, const KeptLimits& limits)
{
    set.lower[p] = limits.lower;
    set.upper[p] = limits.upper;
    set.nominal[p] = limits.nominal;
    set.lowerOperator[p] = limits.lowerOperator;
    set.upperOperator[p] = limits.upperOperator;
    Place(set.lowerTexts, p, limits.lowerText);
    Place(set.upperTexts, p, limits.upperText);
    set.inverted[p] = limits.inverted;
}

/// Whether two sets agree wherever the run has a result.
bool Agree(const RunLimits* a, const RunLimits& b, const std::vector<std::int16_t>& codes)
{
    static const KeptLimits none;
    for (std::uint32_t p = 0; p < codes.size(); ++p) {
        if (codes[p] != Run::NoCode && !IsSameAt(b, p, a ? At(*a, p) : none))
            return false;
    }
    return true;
}

bool IsNothing(const RunLimits& set)
{
    static const KeptLimits none;
    for (std::uint32_t p = 0; p < set.lower.size(); ++p) {
        if (!IsSameAt(set, p, none))
            return false;
    }
    return true;
}

std::string HashOf(const RunLimits& set)
{
    Hash hash;
    hash.AddNumbers(set.lower);
    hash.AddNumbers(set.upper);
    hash.AddNumbers(set.nominal);
    for (std::size_t p = 0; p < set.lower.size(); ++p) {
        hash.Add(set.lowerOperator[p]);
        hash.Add(set.upperOperator[p]);
        hash.Add(std::int64_t(set.inverted[p]));
    }
    for (const Texts* const texts : {&set.lowerTexts, &set.upperTexts}) {
        hash.Add(std::int64_t(texts->size()));
        for (const auto& [position, text] : *texts) {
            hash.Add(std::int64_t(position));
            hash.Add(text);
        }
    }
    return hash.Result();
}

} // namespace

KeptLimits::KeptLimits(const RunItemLimits& limits)
    : lower(limits.lower)
    , upper(limits.upper)
    , nominal(limits.nominal)
    , lowerOperator(limits.lowerOperator)
    , upperOperator(limits.upperOperator)
    , lowerText(limits.lowerText)
    , upperText(limits.upperText)
    , inverted(limits.inverted)
{
}

bool KnownLimits::Matches(std::uint32_t position, const RunItemLimits* limits) const
{
    static const RunItemLimits none;
    const RunLimits* const set = m_sets.empty() ? nullptr : m_sets.front().get();
    if (!set)
        return !limits;
    return IsSameAt(*set, position, limits ? *limits : none);
}

KeptLimits KnownLimits::Newest(std::uint32_t position) const
{
    return m_sets.empty() || !m_sets.front() ? KeptLimits() : At(*m_sets.front(), position);
}

std::shared_ptr<const RunLimits> KnownLimits::Share(const std::vector<PlacedLimits>& changes,
                                                    const std::vector<std::int16_t>& codes)
{
    if (changes.empty())
        return m_sets.empty() ? nullptr : m_sets.front();
    const bool hasBase = !m_sets.empty() && m_sets.front();
    RunLimits set = hasBase ? *m_sets.front() : NoLimits(codes.size());
    for (const PlacedLimits& change : changes)
        Put(set, change.position, change.limits);

    const auto known = std::find_if(m_sets.begin(), m_sets.end(),
                                    [&](const auto& one) { return Agree(one.get(), set, codes); });
    if (known != m_sets.end()) {
        std::rotate(m_sets.begin(), known, known + 1);
        return m_sets.front();
    }
    std::shared_ptr<const RunLimits> made;
    if (!IsNothing(set)) {
        set.hash = HashOf(set);
        made = std::make_shared<const RunLimits>(std::move(set));
    }
    m_sets.insert(m_sets.begin(), made);
    if (m_sets.size() > most)
        m_sets.pop_back();
    return made;
}

} // namespace ZYN
