#include "RunBuilder.h"

#include "KnownLayout.h"

#include <algorithm>
#include <limits>

namespace ZYN {

namespace {

constexpr std::size_t mostLayouts = 16;
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

std::int16_t CodeOf(int code)
{
    constexpr int smallest = Run::NoCode + 1;
    constexpr int largest = std::numeric_limits<std::int16_t>::max();
    return std::int16_t(std::clamp(code, smallest, largest));
}

} // namespace

/// A run that is being made. As long as its components stand in a known layout, one behind the other, its
/// arrays are by position in that; the first one that does not makes it a run with a list of its own, which
/// looks for its layout at the end.
class [[gnu::visibility("hidden")]] RunBuilder_Private
{
public:
    void Begin(std::string_view program, std::string_view ident, std::string_view version);
    void SetVersion(std::string_view version);
    void Add(const RunItem& item);
    void Finish(Run * run);

private:
    bool FindPlace(const RunItem& item, int parent);
    void GoOwnWay();
    void Put(const RunItem& item, std::size_t position);
    void NoteLimits(const RunItem& item, std::size_t position);
    KnownLayout& FindLayout(std::vector<std::uint32_t> * places);
    KnownLayout& Keep(RunLayout made, std::size_t longest);
    void Resize(std::size_t size);
    int ParentOf(ComponentKind kind) const;

    std::vector<std::unique_ptr<KnownLayout>> m_layouts; ///< the one that was used last first

    // Of the run.
    std::string m_program;
    std::string m_ident;
    std::string m_version;
    KnownLayout* m_known = nullptr; ///< null: it goes its own way
    std::size_t m_next = 0;         ///< position that the next component is looked for from
    LayoutMaker m_own;
    int m_group = -1;
    int m_step = -1;
    std::vector<PlacedLimits> m_limits; ///< what differs from the newest of the layout
    Run m_run;                          ///< its arrays and texts
};

void RunBuilder_Private::Begin(std::string_view program, std::string_view ident, std::string_view version)
{
    m_program = Shortened(std::string(program));
    m_ident = ident;
    m_version = version;
    m_group = m_step = -1;
    m_next = 0;
    m_limits.clear();
    m_own = LayoutMaker();
    m_run = Run();
    const auto known = std::find_if(m_layouts.begin(), m_layouts.end(), [&](const auto& layout) {
        return layout->IsOf(m_program, ident, version);
    });
    m_known = nullptr;
    if (known == m_layouts.end())
        return;
    std::rotate(m_layouts.begin(), known, known + 1);
    m_known = m_layouts.front().get();
    Resize(m_known->layout->components.size());
}

void RunBuilder_Private::SetVersion(std::string_view version)
{
    if (m_known && m_version != version)
        GoOwnWay();
    m_version = version;
}

void RunBuilder_Private::Resize(std::size_t size)
{
    m_run.values.resize(size, noNumber);
    m_run.codes.resize(size, Run::NoCode);
    m_run.seconds.resize(size, std::numeric_limits<float>::quiet_NaN());
}

int RunBuilder_Private::ParentOf(ComponentKind kind) const
{
    if (kind == ComponentKind::Group)
        return -1;
    return kind == ComponentKind::Measurement && m_step >= 0 ? m_step : m_group;
}

void RunBuilder_Private::Add(const RunItem& item)
{
    const int parent = ParentOf(item.kind);
    if (m_known && !FindPlace(item, parent))
        GoOwnWay();
    if (!m_known) {
        m_own.Add(item, ParentOf(item.kind));
        m_next = m_own.components.size() - 1;
        Resize(m_next + 1);
    }
    if (item.kind == ComponentKind::Group) {
        m_group = int(m_next);
        m_step = -1;
    } else if (item.kind == ComponentKind::Step) {
        m_step = int(m_next);
    }
    NoteLimits(item, m_next);
    Put(item, m_next++);
}

/// Moves to the position of a component. One that stands twice in the program is its first occurrence, unless
/// the run has that already.
bool RunBuilder_Private::FindPlace(const RunItem& item, int parent)
{
    const std::size_t end = m_run.codes.size();
    for (std::size_t place = m_next; place < end; ++place) {
        if (!m_known->IsAt(place, item, parent))
            continue;
        const int previous = m_known->previous[place];
        if (previous >= 0 && m_run.codes[std::size_t(previous)] == Run::NoCode)
            continue;
        m_next = place;
        return true;
    }
    return false;
}

void RunBuilder_Private::GoOwnWay()
{
    std::vector<std::uint32_t> positions;
    std::vector<std::uint32_t> indexes(m_next);
    for (std::uint32_t position = 0; position < m_next; ++position) {
        indexes[position] = std::uint32_t(positions.size());
        if (m_run.codes[position] != Run::NoCode)
            positions.push_back(position);
    }
    std::vector<PlacedLimits> limits;
    auto changed = m_limits.begin();
    for (std::uint32_t index = 0; index < positions.size(); ++index) {
        const std::uint32_t position = positions[index];
        const bool isChanged = changed != m_limits.end() && changed->position == position;
        limits.push_back(
            {index, isChanged ? std::move((changed++)->limits) : m_known->limits.Newest(position)});
        m_run.values[index] = m_run.values[position];
        m_run.codes[index] = m_run.codes[position];
        m_run.seconds[index] = m_run.seconds[position];
    }
    for (Run::Texts* const texts : {&m_run.texts, &m_run.comments, &m_run.attributes})
        for (auto& [position, text] : *texts)
            position = indexes[position];
    m_group = m_group < 0 ? -1 : int(indexes[std::size_t(m_group)]);
    m_step = m_step < 0 ? -1 : int(indexes[std::size_t(m_step)]);
    m_limits = std::move(limits);
    m_own = LayoutMaker(*m_known->layout, positions);
    m_known = nullptr;
    m_run.values.resize(positions.size());
    m_run.codes.resize(positions.size());
    m_run.seconds.resize(positions.size());
}

void RunBuilder_Private::NoteLimits(const RunItem& item, std::size_t position)
{
    if (m_known && m_known->limits.Matches(std::uint32_t(position), item.limits))
        return;
    m_limits.push_back({std::uint32_t(position), item.limits ? KeptLimits(*item.limits) : KeptLimits()});
}

void RunBuilder_Private::Put(const RunItem& item, std::size_t position)
{
    const auto place = std::uint32_t(position);
    m_run.values[position] = item.number;
    m_run.codes[position] = CodeOf(item.code);
    m_run.seconds[position] = float(item.seconds);
    if (!item.text.empty())
        m_run.texts.emplace_back(place, item.text);
    if (!item.comment.empty())
        m_run.comments.emplace_back(place, item.comment);
    if (!item.attribute.empty())
        m_run.attributes.emplace_back(place, item.attribute);
}

/// The layout of a run that went its own way.
/// \param places receives where its components stand in it
KnownLayout& RunBuilder_Private::FindLayout(std::vector<std::uint32_t>* places)
{
    const auto isOf = [&](const auto& layout) { return layout->IsOf(m_program, m_ident, m_version); };
    for (auto& known : m_layouts) {
        if (!isOf(known))
            continue;
        if (auto found = known->PlacesOf(m_own.components)) {
            *places = std::move(*found);
            std::swap(known, m_layouts.front());
            return *m_layouts.front();
        }
    }
    std::size_t longest = m_own.components.size();
    std::optional<RunLayout> made;
    for (auto known = m_layouts.begin(); known != m_layouts.end() && !made; ++known) {
        if (!isOf(*known))
            continue;
        made = (*known)->With(m_own.components);
        if (made) {
            longest = std::max(longest, (*known)->longest);
            m_layouts.erase(known);
            break;
        }
    }
    if (!made)
        made = RunLayout{m_program, m_ident, m_version, m_own.components, {}};
    KnownLayout& kept = Keep(std::move(*made), longest);
    *places = kept.PlacesOf(m_own.components).value();
    return kept;
}

KnownLayout& RunBuilder_Private::Keep(RunLayout made, std::size_t longest)
{
    m_layouts.insert(m_layouts.begin(), std::make_unique<KnownLayout>(std::move(made)));
    m_layouts.front()->longest = longest;
    if (m_layouts.size() > mostLayouts)
        m_layouts.pop_back();
    return *m_layouts.front();
}

void RunBuilder_Private::Finish(Run* run)
{
    if (!m_known) {
        std::vector<std::uint32_t> places;
        KnownLayout& known = FindLayout(&places);
        const Run own = std::move(m_run);
        m_run = Run();
        Resize(known.layout->components.size());
        for (std::size_t index = 0; index < places.size(); ++index) {
            m_run.values[places[index]] = own.values[index];
            m_run.codes[places[index]] = own.codes[index];
            m_run.seconds[places[index]] = own.seconds[index];
        }
        m_run.texts = own.texts;
        m_run.comments = own.comments;
        m_run.attributes = own.attributes;
        for (Run::Texts* const texts : {&m_run.texts, &m_run.comments, &m_run.attributes})
            for (auto& [position, text] : *texts)
                position = places[position];
        for (PlacedLimits& limits : m_limits)
            limits.position = places[limits.position];
        m_known = &known;
    }
    run->layout = m_known->layout;
    run->limits = m_known->limits.Share(m_limits, m_run.codes);
    run->values = std::move(m_run.values);
    run->codes = std::move(m_run.codes);
    run->seconds = std::move(m_run.seconds);
    run->texts = std::move(m_run.texts);
    run->comments = std::move(m_run.comments);
    run->attributes = std::move(m_run.attributes);
    m_run = Run();
    m_known = nullptr;
}

RunBuilder::RunBuilder()
    : d(std::make_unique<RunBuilder_Private>())
{
}

RunBuilder::~RunBuilder() = default;

void RunBuilder::Begin(std::string_view program, std::string_view ident, std::string_view version)
{
    d->Begin(program, ident, version);
}

void RunBuilder::SetVersion(std::string_view version)
{
    d->SetVersion(version);
}

void RunBuilder::Add(const RunItem& item)
{
    d->Add(item);
}

void RunBuilder::Finish(Run* run)
{
    d->Finish(run);
}

} // namespace ZYN
