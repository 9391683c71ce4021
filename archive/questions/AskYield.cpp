#include "archive/Archive.h"
#include "archive/questions/BinNames.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/GroupColumns.h"
#include "archive/questions/Programs.h"
#include "archive/questions/YieldOrder.h"

#include <algorithm>
#include <map>

namespace ZYN {

namespace {

/// Counts runs first and then takes back what retests count too much: a unit for each run, and as passed each
/// run that passed. Only units with several runs need to be looked at one by one.
class YieldQuestion {
public:
    YieldQuestion(const Archive& archive, const RunFilter& filter, const std::vector<GroupBy>& by)
        : m_archive(archive)
        , m_runs(archive, filter, ChosenRuns::Of::Units)
        , m_by(by)
    {
        for (const GroupBy one : by) {
            m_columns += QStringLiteral(", ") + ColumnOf(one, archive.IsPostgreSql());
            if (NeedsUnit(one))
                m_joins = m_runs.JoinHome();
        }
    }

    std::optional<std::vector<YieldRow>> Answer()
    {
        BinNames names;
        if (!m_programs.Read(m_archive, m_runs) || !CountRuns() || !TakeBackRetests() ||
            !names.Read(m_archive, m_runs, m_programs, m_by))
            return std::nullopt;
        std::vector<YieldRow> rows;
        for (auto& [key, row] : m_rows) {
            row.group = GroupOf(m_programs, m_by, key.front(), {key.begin() + 1, key.end()});
            rows.push_back(std::move(row));
        }
        SortYield(&rows);
        names.PutInto(&rows);
        return rows;
    }

private:
    /// Program and texts of the group.
    using Key = std::vector<QString>;

    bool CountRuns()
    {
        const int columns = int(m_by.size()) + 3;
        QStringList ordinals;
        for (int i = 1; i <= columns; ++i)
            ordinals.append(QString::number(i));
        std::optional<QSqlQuery> query = m_runs.Select(
            QStringLiteral("r.layout") + m_columns + QStringLiteral(", r.first, r.code, count(*)"), m_joins,
            {}, QStringLiteral("GROUP BY ") + ordinals.join(QLatin1Char(',')) + m_runs.AlsoGroupBy());
        while (query && query->next())
            Count(&m_rows[KeyOf(*query)], query->value(columns - 2).toBool(),
                  query->value(columns - 1).toInt(), query->value(columns).toLongLong());
        return query && IsComplete(m_archive, *query);
    }

    // Runs of one kind: first ones or not, of one verdict.
    static void Count(YieldRow* row, bool areFirst, int code, std::int64_t runs)
    {
        row->runs += runs;
        row->units += runs;
        if (areFirst)
            row->firstRuns += runs;
        if (code > 0) {
            row->runsPassed += runs;
            row->passed += runs;
            row->firstPass += areFirst ? runs : 0;
        }
        if (code == -1)
            row->failed += runs;
        if (code == -3)
            row->errors += runs;
        if (code == -5)
            row->aborted += runs;
        if (code == 0)
            row->notTested += runs;
    }

    bool TakeBackRetests()
    {
        std::optional<QSqlQuery> query = m_runs.Select(
            QStringLiteral("r.layout") + m_columns + QStringLiteral(", r.unit, r.code"), m_joins,
            m_runs.HasRetest(), QStringLiteral("ORDER BY r.unit, ") + ChosenRuns::InOrder());
        std::map<Key, int> last; // what the unit's last run in a group came to, so far
        qint64 unit = 0;
        const int column = int(m_by.size()) + 1;
        while (query && query->next()) {
            if (query->value(column).toLongLong() != unit)
                last.clear();
            unit = query->value(column).toLongLong();
            const int code = query->value(column + 1).toInt();
            const Key key = KeyOf(*query);
            const auto [known, isNew] = last.emplace(key, code);
            if (isNew)
                continue;
            YieldRow& row = m_rows[key];
            --row.units;
            row.passed -= known->second > 0;
            known->second = code;
        }
        return query && IsComplete(m_archive, *query);
    }

    Key KeyOf(const QSqlQuery& query)
    {
        Key key{m_programs.NameOf(query.value(0).toInt())};
        for (std::size_t i = 0; i < m_by.size(); ++i) {
            const QVariant value = query.value(int(i) + 1);
            key.push_back(m_by[i] == GroupBy::Program ? key.front() : TextOf(m_by[i], value));
        }
        return key;
    }

    const Archive& m_archive;
    const ChosenRuns m_runs;
    const std::vector<GroupBy> m_by;
    QString m_columns, m_joins;
    Programs m_programs;
    std::map<Key, YieldRow> m_rows;
};

} // namespace

std::optional<std::vector<YieldRow>> AskYield(const Archive& archive, const RunFilter& filter,
                                              const std::vector<GroupBy>& by)
{
    return YieldQuestion(archive, filter, by).Answer();
}

} // namespace ZYN
