#include "archive/questions/SeriesReader.h"

#include "archive/Archive.h"
#include "archive/ArrayReader.h"
#include "archive/StartOfRun.h"
#include "runs/Run.h"

namespace ZYN {

SeriesReader::SeriesReader(const Archive& archive, const RunFilter& filter, const QStringList& names)
    : m_archive(archive)
    , m_runs(archive, filter, ChosenRuns::Of::All)
    , m_items(archive, names)
{
}

bool SeriesReader::Read()
{
    if (!m_programs.Read(m_archive, m_runs) || !ReadOrder() || !ReadArrays())
        return false;
    for (std::size_t i = 0; i < m_series.size(); ++i)
        m_series[i].item = m_items.GetItems()[i];
    // Limits that no run was judged by, in the set of a run that lacks the component.
    std::erase_if(m_series, [](const MeasuredSeries& series) { return !series.isMet; });
    for (MeasuredSeries& series : m_series)
        series.Sort();
    return true;
}

bool SeriesReader::ReadOrder()
{
    std::optional<QSqlQuery> query =
        m_runs.Select(QStringLiteral("r.id, u.serial, u.seen_ident, u.lot, r.start"), m_runs.JoinHome(), {},
                      QStringLiteral("ORDER BY ") + ChosenRuns::InOrder());
    while (query && query->next()) {
        m_order.emplace(query->value(0).toLongLong(), std::uint32_t(m_places.size()));
        MeasuredRun& run = m_places.emplace_back();
        RunPlace& place = run.place;
        place.serial = query->value(1).toString();
        if (place.serial.isEmpty())
            place.serial = query->value(2).toString();
        place.lot = query->value(3).toString();
        const std::int64_t start = query->value(4).toLongLong();
        if (start != UnreadableStart)
            run.start = start;
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
    std::optional<QSqlQuery> limits = m_runs.Select(QStringLiteral("DISTINCT r.limits"));
    std::vector<qint64> ids;
    while (limits && limits->next())
        ids.push_back(limits->value(0).toLongLong());
    if (!limits || !IsComplete(m_archive, *limits))
        return false;
    if (!m_items.Read(m_programs, ids))
        return false;

    std::optional<QSqlQuery> query =
        m_runs.Select(QStringLiteral("r.id, r.layout, r.limits, v.start_text, ") + arrays,
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
    const MeasuredItems::Positions& series = m_items.Find(row.value(1).toInt(), row.value(2).toLongLong());
    m_series.resize(m_items.GetItems().size());
    m_places[run].place.start = row.value(3).toString();
    const QByteArray values = row.value(4).toByteArray();
    const QByteArray codes = row.value(5).toByteArray();
    std::vector<std::pair<int, double>> texts;
    if (!row.value(6).isNull())
        texts = NumbersByPosition(row.value(6).toString().toUtf8());

    ArrayReader value(values), code(codes);
    for (std::size_t position = 0; position < series.size() && !code.IsAtEnd() && !value.IsAtEnd();
         ++position) {
        if (series[position] < 0) {
            value.Skip();
            code.Skip();
            continue;
        }
        const std::optional<int> verdict = code.Integer();
        double number = value.Number();
        if (!verdict)
            continue;
        MeasuredSeries& one = m_series[std::size_t(series[position])];
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

} // namespace ZYN
