#include "archive/Removal.h"

#include "archive/SummaryWriter.h"

namespace ZYN {

namespace {

// Before a time in UTC, or on the tester's clock.
const QString utc = QStringLiteral("start < ?");
const QString testerClock = QStringLiteral("start < CAST(? AS bigint) - coalesce(utc_offset, 0) * 60000");

const QString failures = QStringLiteral("DELETE FROM failure WHERE run IN (SELECT id FROM run WHERE %1)");
const QString values = QStringLiteral("DELETE FROM run_values WHERE run IN (SELECT id FROM run WHERE %1)");
const QString runs = QStringLiteral("DELETE FROM run WHERE %1");
const QString units =
    QStringLiteral("DELETE FROM unit WHERE NOT EXISTS (SELECT 1 FROM run WHERE run.unit = unit.id)");

// Days of which all runs are removed, and days of which some may be: clocks are at most 14 hours from UTC,
// and there are wrong ones.
constexpr qint64 Slack = 2;

// A month at a time, of a server: its tables are dropped, whatever they hold.
bool DropMonths(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    QSqlQuery query = database.Prepare(QStringLiteral("SELECT archive_drop_months(?)"));
    query.addBindValue(qint64(bound.at - (bound.byTesterClock ? Slack * MillisecondsOfDay : 0)));
    if (!database.Run(query) || !query.next())
        return false;
    *removed += query.value(0).toLongLong();
    return true;
}

bool RemoveSummaries(Database& database, qint64 day)
{
    QSqlQuery query = database.Prepare(QStringLiteral("DELETE FROM summary WHERE day < ?"));
    query.addBindValue(day);
    return database.Run(query);
}

bool RenewSummaries(Database& database, SummaryWriter& summaries, qint64 first, qint64 last)
{
    QSqlQuery query = database.Prepare(QStringLiteral(
        "SELECT product, station, layout, limits, day FROM summary WHERE day >= ? AND day <= ?"));
    query.addBindValue(first);
    query.addBindValue(last);
    if (!database.Run(query))
        return false;
    while (query.next())
        summaries.Renew({query.value(0).toString(), query.value(1).toString(), query.value(2).toLongLong(),
                         query.value(3).toLongLong(), query.value(4).toLongLong()});
    return true;
}

} // namespace

bool RemoveRunsBefore(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    std::int64_t affected = 0;
    const auto remove = [&](const QString& sql) {
        QSqlQuery query = database.Prepare(sql.arg(bound.byTesterClock ? testerClock : utc));
        query.addBindValue(qint64(bound.at));
        const bool isGood = database.Run(query);
        affected = query.numRowsAffected();
        return isGood;
    };
    SummaryWriter summaries(database);
    const qint64 day = DayOf(bound.at, std::nullopt);
    return database.InTransaction([&] {
        *removed = 0;
        summaries.Forget();
        if ((database.IsPostgreSql() && !DropMonths(database, bound, removed)) || !remove(failures) ||
            !remove(values) || !remove(runs))
            return false;
        *removed += affected;
        return RemoveSummaries(database, day - Slack) &&
               RenewSummaries(database, summaries, day - Slack, day + Slack) && summaries.Write() &&
               database.Execute(units);
    });
}

} // namespace ZYN
