#include "archive/questions/SeriesReader.h"

#include "archive/Archive.h"
#include "archive/ArrayReader.h"
#include "archive/StartOfRun.h"
#include "runs/Run.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace ZYN {

SeriesReader::SeriesReader(const Archive& archive, const RunFilter& filter, const QStringList& names)
    : m_archive(archive)
    , m_runs(archive, filter, ChosenRuns::Of::All)
    , m_items(archive, names)
{
}

bool SeriesReader::Read()
{
    if (!m_programs.Read(m_archive, m_runs) || !ReadRuns())
        return false;
    for (std::size_t i = 0; i < m_series.size(); ++i)
        m_series[i].item = m_items.GetItems()[i];
    // Limits that no run was judged by, in the set of a run that lacks the component.
    std::erase_if(m_series, [](const MeasuredSeries& series) { return !series.isMet; });
    PutInOrder();
    return true;
}

bool SeriesReader::ReadItems()
{
    std::vector<qint64> ids;
    if (m_archive.IsPostgreSql()) {
        // While rows come, one connection to a server cannot ask for more.
        std::optional<QSqlQuery> limits = m_runs.Select(QStringLiteral("DISTINCT r.limits"));
        while (limits && limits->next())
            ids.push_back(limits->value(0).toLongLong());
        if (!limits || !IsComplete(m_archive, *limits))
            return false;
    }
    return m_items.Read(m_programs, ids);
}

bool SeriesReader::ReadRuns()
{
    if (!ReadItems())
        return false;
    // As bytes, which need not be converted to UTF-16 and back.
    const QString bytes =
        m_archive.IsPostgreSql() ? QStringLiteral("%1") : QStringLiteral("CAST(%1 AS BLOB)");
    QStringList columns{
        QStringLiteral("r.start, r.run_index, r.test_index, r.id, r.layout, r.limits, v.texts")};
    for (const char* const text : {"CASE WHEN u.serial = '' THEN u.seen_ident ELSE u.serial END", "u.lot",
                                   "v.start_text", "v.vals", "v.codes"})
        columns.append(bytes.arg(QLatin1String(text)));
    std::optional<QSqlQuery> query =
        m_runs.Select(columns.join(QLatin1String(", ")), m_runs.JoinHome() + m_runs.JoinValues());
    while (query && query->next())
        if (!ReadRun(*query))
            return false;
    return query && IsComplete(m_archive, *query);
}

bool SeriesReader::ReadRun(const QSqlQuery& row)
{
    const auto number = [&](int column) { return row.value(column).toLongLong(); };
    const auto run = std::uint32_t(m_places.size());
    m_times.push_back({number(0), number(1), number(2)});
    m_ids.push_back(number(3));
    AddPlace(row.value(7).toByteArray(), row.value(8).toByteArray(), row.value(9).toByteArray());
    if (const std::int64_t start = number(0); start != unreadableStart)
        m_places.back().start = start;
    const MeasuredItems::Positions* const found = m_items.Find(row.value(4).toInt(), number(5));
    if (!found)
        return false;
    m_series.resize(m_items.GetItems().size());
    std::vector<std::pair<int, double>> texts;
    if (!row.value(6).isNull())
        texts = NumbersByPosition(row.value(6).toString().toUtf8());
    AddValues(run, *found, row.value(10).toByteArray(), row.value(11).toByteArray(), texts);
    return true;
}

void SeriesReader::AddPlace(const QByteArray& serial, const QByteArray& lot, const QByteArray& start)
{
    if (lot != m_lot) {
        m_lot = lot;
        m_lotText = QString::fromUtf8(lot); // once for all runs of it
    }
    m_places.push_back({{QString::fromUtf8(serial), m_lotText, QString::fromUtf8(start)}, std::nullopt});
}

void SeriesReader::AddValues(std::uint32_t run, const MeasuredItems::Positions& series,
                             const QByteArray& values, const QByteArray& codes,
                             const std::vector<std::pair<int, double>>& texts)
{
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
}

// Units that were tested at one moment come in one order, however late they were added.
bool SeriesReader::IsBefore(std::uint32_t a, std::uint32_t b) const
{
    if (m_times[a] != m_times[b])
        return m_times[a] < m_times[b];
    const RunPlace &one = m_places[a].place, &other = m_places[b].place;
    return std::tie(one.serial, one.lot, m_ids[a]) < std::tie(other.serial, other.lot, m_ids[b]);
}

void SeriesReader::PutInOrder()
{
    const auto isBefore = [&](std::uint32_t a, std::uint32_t b) { return IsBefore(a, b); };
    std::vector<std::uint32_t> order(m_places.size());
    std::iota(order.begin(), order.end(), 0U);
    if (!std::is_sorted(order.begin(), order.end(), isBefore)) {
        std::sort(order.begin(), order.end(), isBefore);
        std::vector<std::uint32_t> ranks(order.size());
        std::vector<MeasuredRun> places;
        places.reserve(order.size());
        for (const std::uint32_t run : order) {
            ranks[run] = std::uint32_t(places.size());
            places.push_back(std::move(m_places[run]));
        }
        m_places = std::move(places);
        for (MeasuredSeries& series : m_series)
            series.Sort(ranks);
    }
    m_times = {};
    m_ids = {};
}

} // namespace ZYN
