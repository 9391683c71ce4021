#include "archive/RunDigest.h"

#include "archive/UnitOfRun.h"

#include <QtCore/QCryptographicHash>

#include <bit>
#include <cmath>
#include <cstring>

namespace ZYN {

namespace {

// Limits that change from run to run must not fill the memory.
constexpr size_t componentsKept = 64;

void Put(std::string* out, std::uint64_t number)
{
    out->append(reinterpret_cast<const char*>(&number), sizeof number);
}

void Put(std::string* out, const std::string& text)
{
    Put(out, text.size()); // so that "a" + "bc" is not "ab" + "c"
    out->append(text);
}

// One pattern for all that are not a number.
void Put(std::string* out, double number)
{
    Put(out, std::isnan(number) ? ~std::uint64_t(0) : std::bit_cast<std::uint64_t>(number));
}

template <typename Number>
void Put(std::string* out, const std::optional<Number>& number)
{
    Put(out, std::uint64_t(number.has_value()));
    if (!number)
        return;
    if constexpr (std::is_floating_point_v<Number>)
        Put(out, *number);
    else
        Put(out, std::uint64_t(*number));
}

QByteArray Sha256(const std::string& bytes)
{
    return QCryptographicHash::hash(QByteArrayView(bytes.data(), qsizetype(bytes.size())),
                                    QCryptographicHash::Sha256);
}

void PutAt(std::string* out, const Run::Texts& texts, std::uint32_t position)
{
    for (const auto& [at, text] : texts)
        if (at == position)
            Put(out, text);
}

// No limits at a position are the same as no limits at all.
void PutLimits(std::string* out, const RunLimits& limits, std::uint32_t position)
{
    const size_t i = position;
    Put(out, limits.lower[i]);
    Put(out, limits.upper[i]);
    Put(out, limits.lowerOperator[i]);
    Put(out, limits.upperOperator[i]);
    Put(out, limits.nominal[i]);
    Put(out, std::uint64_t(limits.inverted[i]));
    PutAt(out, limits.lowerTexts, position);
    Put(out, std::string());
    PutAt(out, limits.upperTexts, position);
}

RunLimits NoLimits()
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    return {{none}, {none}, {std::string()}, {std::string()}, {none}, {false}, {}, {}, {}};
}

} // namespace

const std::vector<RunDigester::Half>& RunDigester::Components(const Run& run)
{
    const std::string name = run.layout->hash + (run.limits ? run.limits->hash : std::string());
    if (const auto known = m_components.find(name); known != m_components.end())
        return known->second;
    if (m_components.size() >= componentsKept)
        m_components.clear();
    static const RunLimits noLimits = NoLimits();
    std::vector<Half>& halves = m_components[name];
    for (std::uint32_t i = 0; i < run.layout->components.size(); ++i) {
        const RunComponent& component = run.layout->components[i];
        m_buffer.clear();
        Put(&m_buffer, component.hash[0]);
        Put(&m_buffer, component.hash[1]);
        run.limits ? PutLimits(&m_buffer, *run.limits, i) : PutLimits(&m_buffer, noLimits, 0);
        const QByteArray digest = Sha256(m_buffer);
        std::memcpy(halves.emplace_back().data(), digest.constData(), sizeof(Half));
    }
    return halves;
}

RunDigest RunDigester::Digest(const Run& run)
{
    const std::vector<Half>& components = Components(run);
    const auto put = [&](size_t position) { m_buffer.append(components[position].data(), sizeof(Half)); };
    m_buffer.clear();
    for (const std::string* text : {&run.product, &run.lot, &run.serial, &run.ident, &run.wafer,
                                    &run.startText, &run.station, &run.operatorName, &run.panel, &run.comment,
                                    &run.layout->program, &run.layout->programIdent, &run.layout->version})
        Put(&m_buffer, *text);
    for (const int number : {int(run.isPanel), run.runIndex, run.testIndex, run.code})
        Put(&m_buffer, std::uint64_t(number));
    for (const std::optional<int>& number : {run.position, run.site, run.x, run.y, run.hardBin, run.softBin})
        Put(&m_buffer, number);
    Put(&m_buffer, run.duration);
    for (size_t i = 0; i < run.codes.size(); ++i) {
        if (run.codes[i] == Run::NoCode)
            continue;
        put(i);
        Put(&m_buffer, run.values[i]);
        const float seconds = std::isnan(run.seconds[i]) ? -1.0F : run.seconds[i];
        m_buffer.append(reinterpret_cast<const char*>(&seconds), sizeof seconds);
        m_buffer.append(reinterpret_cast<const char*>(&run.codes[i]), sizeof run.codes[i]);
    }
    for (const Run::Texts* texts : {&run.texts, &run.comments, &run.attributes}) {
        Put(&m_buffer, texts->size());
        for (const auto& [position, text] : *texts) {
            put(position);
            Put(&m_buffer, text);
        }
    }
    RunDigest digest;
    digest.content = Sha256(m_buffer);

    const UnitOfRun unit(run);
    m_buffer.clear();
    for (const std::string& text : {*unit.product, *unit.lot, *unit.serial, *unit.ident, *unit.wafer,
                                    run.layout->program, run.startText})
        Put(&m_buffer, text);
    Put(&m_buffer, std::uint64_t(run.isPanel));
    Put(&m_buffer, std::uint64_t(run.runIndex));
    Put(&m_buffer, run.position);
    if (unit.IsAnonymous())
        m_buffer.append(digest.content.constData(), size_t(digest.content.size()));
    digest.key = Sha256(m_buffer);
    return digest;
}

} // namespace ZYN
