#include "archive/Archive.h"
#include "archive/SummaryCell.h"
#include "archive/questions/BinNames.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/FilledRow.h"
#include "archive/questions/GroupColumns.h"
#include "archive/questions/MeasuredItems.h"
#include "archive/questions/MeasuresBy.h"

#include <algorithm>

namespace ZYN {

namespace {

bool IsKeptBy(GroupBy by)
{
    switch (by) {
    case GroupBy::Product:
    case GroupBy::Station:
    case GroupBy::Program:
    case GroupBy::Day:
    case GroupBy::Week:
    case GroupBy::Month:
        return true;
    default:
        return false;
    }
}

bool IsWholeDay(const std::optional<TimeBound>& bound)
{
    return !bound || (bound->byTesterClock && DayOf(bound->at, 0) * millisecondsOfDay == bound->at);
}

/// Figures of measurements by groups: out of summaries where these tell enough, else out of the values.
class MeasuresByQuestion {
public:
    MeasuresByQuestion(const Archive& archive, const RunFilter& filter, const MeasureOptions& options)
        : m_archive(archive)
        , m_filter(filter)
        , m_options(options)
        , m_runs(archive, filter, ChosenRuns::Of::All)
        , m_items(archive)
    {
    }

    std::optional<std::vector<MeasureRow>> Answer()
    {
        BinNames names;
        if (!m_programs.Read(m_archive, m_runs) || !(AreSummariesEnough() ? AddSummaries() : AddRuns()) ||
            !names.Read(m_archive, m_runs, m_programs, m_options.by))
            return std::nullopt;
        std::vector<MeasureRow> rows;
        for (const auto& [key, figures] : m_figures)
            rows.push_back(RowOf(key, figures));
        names.PutInto(&rows);
        return rows;
    }

private:
    /// Texts of a group; positions and the like stand in the order of numbers.
    using Group = std::vector<std::pair<qlonglong, QString>>;
    /// Answers come by path and limits, whatever the database gives first.
    struct Key {
        QString path, ident;
        std::optional<double> lower, upper;
        int item = 0;
        Group group;

        auto Tie() const { return std::tie(path, ident, lower, upper, item, group); }
        bool operator<(const Key& other) const { return Tie() < other.Tie(); }
    };

    bool AreSummariesEnough() const
    {
        return m_archive.HasSummaries() && !m_filter.ofOneLot && m_filter.serial.isEmpty() &&
               m_filter.lot.isEmpty() && IsWholeDay(m_filter.since) && IsWholeDay(m_filter.until) &&
               std::all_of(m_options.by.begin(), m_options.by.end(), IsKeptBy);
    }

    static std::pair<qlonglong, QString> PartOf(const QString& text) { return {text.toLongLong(), text}; }

    void Merge(int item, const Group& group, const Figures::MeasuredFigures& figures)
    {
        if (item < 0 || figures.results == 0)
            return;
        const MeasuredItem& measured = m_items.GetItems()[std::size_t(item)];
        m_figures[{measured.path, measured.ident, measured.judgement.lower, measured.judgement.upper, item,
                   group}]
            .Merge(figures);
    }

    MeasureRow RowOf(const Key& key, const Figures::MeasuredFigures& figures) const
    {
        const MeasuredItem& item = m_items.GetItems()[std::size_t(key.item)];
        MeasureRow row = FilledRow(item, figures);
        std::vector<QString> texts;
        for (const auto& [number, text] : key.group)
            texts.push_back(text);
        row.group = GroupOf(m_programs, m_options.by, item.program, texts);
        return row;
    }

    bool IsWanted(const MeasuredItem& item) const
    {
        return m_options.names.isEmpty() ||
               std::any_of(m_options.names.begin(), m_options.names.end(),
                           [&](const QString& name) { return FitsMeasurement(name, item.ident, item.path); });
    }

    // Positions of what is asked for; -1 for others.
    MeasuredItems::Positions WantedOf(int layout, qint64 limits)
    {
        const MeasuredItems::Positions* const found = m_items.Find(layout, limits); // read before
        MeasuredItems::Positions positions = found ? *found : MeasuredItems::Positions();
        for (int& item : positions)
            if (item >= 0 && !IsWanted(m_items.GetItems()[std::size_t(item)]))
                item = -1;
        return positions;
    }

    bool AddRuns();
    bool AddSummaries();
    bool ReadItems(std::optional<QSqlQuery> limits);
    std::optional<QSqlQuery> Summaries(const QString& columns) const;

    const Archive& m_archive;
    const RunFilter& m_filter;
    const MeasureOptions& m_options;
    const ChosenRuns m_runs;
    Programs m_programs;
    MeasuredItems m_items;
    std::map<Key, Figures::MeasuredFigures> m_figures;
};

bool MeasuresByQuestion::ReadItems(std::optional<QSqlQuery> limits)
{
    std::vector<qint64> ids;
    while (limits && limits->next())
        ids.push_back(limits->value(0).toLongLong());
    return limits && IsComplete(m_archive, *limits) && m_items.Read(m_programs, ids);
}

bool MeasuresByQuestion::AddRuns()
{
    if (!ReadItems(m_runs.Select(QStringLiteral("DISTINCT r.limits"))))
        return false;
    QString columns = QStringLiteral("r.layout, r.limits, v.vals, v.codes, v.texts");
    for (const GroupBy by : m_options.by)
        columns += QStringLiteral(", ") + ColumnOf(by, m_archive.IsPostgreSql());
    std::optional<QSqlQuery> query = m_runs.Select(columns, m_runs.JoinValues() + m_runs.JoinHome());
    while (query && query->next()) {
        const int layout = query->value(0).toInt();
        Group group;
        for (std::size_t i = 0; i < m_options.by.size(); ++i)
            group.push_back(PartOf(m_options.by[i] == GroupBy::Program
                                       ? m_programs.NameOf(layout)
                                       : TextOf(m_options.by[i], query->value(5 + int(i)))));
        const auto bytes = [&](int column) { return query->value(column).toString().toUtf8(); };
        SummaryCell cell;
        cell.AddKept(bytes(2), bytes(3), bytes(4));
        const MeasuredItems::Positions positions = WantedOf(layout, query->value(1).toLongLong());
        for (std::size_t i = 0; i < std::min(positions.size(), cell.figures.size()); ++i)
            Merge(positions[i], group, cell.figures[i]);
    }
    return query && IsComplete(m_archive, *query);
}

std::optional<QSqlQuery> MeasuresByQuestion::Summaries(const QString& columns) const
{
    QStringList conditions{QStringLiteral("1 = 1")};
    QVariantList values;
    const auto add = [&](const char* condition, const QVariant& value) {
        conditions.append(QLatin1String(condition));
        values.append(value);
    };
    if (!m_filter.product.isEmpty())
        add("s.product = ?", m_filter.product);
    if (!m_filter.station.isEmpty())
        add("s.station = ?", m_filter.station);
    if (!m_filter.program.isEmpty())
        add("l.program = ?", m_filter.program);
    if (m_filter.since)
        add("s.day >= ?", DayOf(m_filter.since->at, 0));
    if (m_filter.until)
        add("s.day < ?", DayOf(m_filter.until->at, 0));
    if (m_filter.since || m_filter.until)
        add("s.day < ?", unreadableDay);
    return Ask(m_archive,
               QStringLiteral("SELECT %1 FROM summary s JOIN layout l ON l.id = s.layout WHERE %2")
                   .arg(columns, conditions.join(QLatin1String(" AND "))),
               values);
}

bool MeasuresByQuestion::AddSummaries()
{
    if (!ReadItems(Summaries(QStringLiteral("DISTINCT s.limits"))))
        return false;
    std::optional<QSqlQuery> query =
        Summaries(QStringLiteral("s.layout, s.limits, s.product, s.station, s.day, s.") +
                  SummaryColumns().join(QLatin1String(", s.")));
    while (query && query->next()) {
        const int layout = query->value(0).toInt();
        const MeasuredItems::Positions positions = WantedOf(layout, query->value(1).toLongLong());
        std::vector<bool> areWanted;
        for (const int item : positions)
            areWanted.push_back(item >= 0);
        QList<QByteArray> arrays;
        for (int column = 0; column < SummaryColumns().size(); ++column)
            arrays.append(query->value(5 + column).toString().toUtf8());
        const qint64 day = query->value(4).toLongLong();
        Group group;
        for (const GroupBy by : m_options.by)
            group.push_back(PartOf(by == GroupBy::Product   ? query->value(2).toString()
                                   : by == GroupBy::Station ? query->value(3).toString()
                                   : by == GroupBy::Program ? m_programs.NameOf(layout)
                                                            : TextOfDay(by, day)));
        const std::vector<Figures::MeasuredFigures> figures = FiguresOfSummary(arrays, areWanted);
        for (std::size_t i = 0; i < std::min(positions.size(), figures.size()); ++i)
            Merge(positions[i], group, figures[i]);
    }
    return query && IsComplete(m_archive, *query);
}

} // namespace

std::optional<std::vector<MeasureRow>> AskMeasuresBy(const Archive& archive, const RunFilter& filter,
                                                     const MeasureOptions& options)
{
    return MeasuresByQuestion(archive, filter, options).Answer();
}

} // namespace ZYN
