#include "archive/questions/SeriesReader.h"

#include "archive/Archive.h"
#include "archive/questions/ArrayReader.h"
#include "runs/Run.h"

namespace ZYN {

SeriesReader::SeriesReader(const Archive& archive, const RunFilter& filter)
    : m_archive(archive)
    , m_runs(archive, filter, ChosenRuns::Of::All)
    , m_limits(archive)
{
}

bool SeriesReader::Read()
{
    if (!m_programs.Read(m_archive, m_runs) || !ReadLayouts() || !ReadOrder() || !ReadArrays())
        return false;
    // Limits that no run was judged by, in the set of a run that lacks the component.
    std::erase_if(m_series, [](const MeasuredSeries& series) { return !series.isMet; });
    for (MeasuredSeries& series : m_series)
        series.Sort();
    return true;
}

bool SeriesReader::ReadLayouts()
{
    std::optional<QSqlQuery> query = Ask(
        m_archive,
        QStringLiteral(
            "SELECT i.layout, c.id, c.kind, i.data_type, c.ident, c.path, i.unit, i.factor, i.unit_code FROM "
            "layout_item i JOIN component c ON c.id = i.component ORDER BY i.layout, i.pos"));
    while (query && query->next()) {
        const int dataType = query->value(3).toInt();
        m_layouts[query->value(0).toInt()].push_back(
            {query->value(1).toInt(),
             query->value(2).toInt() == int(ComponentKind::Measurement) && (dataType == 7 || dataType == 8),
             query->value(4).toString(),
             query->value(5).toString(),
             query->value(6).toString(),
             {query->value(7).toInt(), query->value(8).toInt(), {}}});
    }
    return query && IsComplete(m_archive, *query);
}

bool SeriesReader::ReadOrder()
{
    std::optional<QSqlQuery> query =
        m_runs.Select(QStringLiteral("r.id, u.serial, u.seen_ident, u.lot"), ChosenRuns::JoinHome(), {},
                      QStringLiteral("ORDER BY ") + ChosenRuns::InOrder());
    while (query && query->next()) {
        m_order.emplace(query->value(0).toLongLong(), std::uint32_t(m_places.size()));
        RunPlace& place = m_places.emplace_back();
        place.serial = query->value(1).toString();
        if (place.serial.isEmpty())
            place.serial = query->value(2).toString();
        place.lot = query->value(3).toString();
    }
    return query && IsComplete(m_archive, *query);
}

bool SeriesReader::ReadArrays()
{
    // As bytes, which need not be converted to UTF-16.
    const QString arrays = m_archive.IsPostgreSql()
                               ? QStringLiteral("v.vals, v.codes, v.texts")
                               : QStringLiteral("CAST(v.vals AS BLOB), CAST(v.codes AS BLOB), v.texts");
    // Limits are asked for while rows come, which one connection to a server cannot do.
    std::optional<QSqlQuery> limits = m_runs.Select(QStringLiteral("DISTINCT coalesce(r.limits, 0)"));
    std::vector<qint64> ids;
    while (limits && limits->next())
        ids.push_back(limits->value(0).toLongLong());
    if (!limits || !IsComplete(m_archive, *limits))
        return false;
    for (const qint64 id : ids)
        if (!m_limits.Get(id))
            return false;

    std::optional<QSqlQuery> query =
        m_runs.Select(QStringLiteral("r.id, r.layout, coalesce(r.limits, 0), v.start_text, ") + arrays,
                      m_runs.JoinValues());
    while (query && query->next())
        if (!ReadRun(*query))
            return false;
    return query && IsComplete(m_archive, *query);
}

bool SeriesReader::ReadRun(const QSqlQuery& row)
{
    const auto place = m_order.find(row.value(0).toLongLong());
    if (place == m_order.end())
        return true; // came in the meantime
    const std::uint32_t run = place->second;
    const SeriesOfLayout* const series = Find(row.value(1).toInt(), row.value(2).toLongLong());
    if (!series)
        return false;
    m_places[run].start = row.value(3).toString();
    const QByteArray values = row.value(4).toByteArray();
    const QByteArray codes = row.value(5).toByteArray();
    std::vector<std::pair<int, double>> texts;
    if (!row.value(6).isNull())
        texts = NumbersByPosition(row.value(6).toString().toUtf8());

    ArrayReader value(values), code(codes);
    for (std::size_t position = 0; position < series->size() && !code.IsAtEnd() && !value.IsAtEnd();
         ++position) {
        if ((*series)[position] < 0) {
            value.Skip();
            code.Skip();
            continue;
        }
        const std::optional<int> verdict = code.Integer();
        double number = value.Number();
        if (!verdict)
            continue;
        MeasuredSeries& one = m_series[std::size_t((*series)[position])];
        one.isMet = true;
        one.failed += *verdict < 0;
        if (std::isnan(number) && !texts.empty()) {
            const auto text = std::find_if(texts.begin(), texts.end(),
                                           [&](const auto& item) { return item.first == int(position); });
            if (text != texts.end()) {
                number = text->second;
                one.notNumbers += std::isnan(number);
            }
        }
        if (std::isfinite(number))
            one.Add(run, number, *verdict);
    }
    return true;
}

const SeriesReader::SeriesOfLayout* SeriesReader::Find(int layout, qint64 limits)
{
    const auto known = m_found.find({layout, limits});
    if (known != m_found.end())
        return &known->second;
    const std::vector<Judgement>* const judgements = m_limits.Get(limits);
    if (!judgements)
        return nullptr;
    SeriesOfLayout series;
    const std::vector<Component>& components = m_layouts[layout];
    for (std::size_t i = 0; i < components.size(); ++i)
        series.push_back(components[i].isNumber
                             ? SeriesOf(components[i], m_programs.NameOf(layout),
                                        i < judgements->size() ? (*judgements)[i] : Judgement())
                             : -1);
    return &m_found.emplace(std::pair(layout, limits), std::move(series)).first->second;
}

int SeriesReader::SeriesOf(const Component& component, const QString& program, const Judgement& judgement)
{
    const SeriesKey key = std::tuple_cat(std::tuple(component.id, component.unit), judgement.Key());
    const auto [known, isNew] = m_known.emplace(key, int(m_series.size()));
    if (isNew) {
        MeasuredSeries& series = m_series.emplace_back();
        series.program = program;
        series.ident = component.ident;
        series.path = component.path;
        series.unit = component.unit;
        series.judgement = judgement;
    }
    NumberStyle& style = m_series[std::size_t(known->second)].style;
    style = component.style;
    style.lowerOperator = QString::fromStdString(judgement.lowerOperator);
    return known->second;
}

} // namespace ZYN
