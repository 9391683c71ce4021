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

// A month at a time, of a server: its tables are dropped, whatever they hold.
bool DropMonths(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    QSqlQuery query = database.Prepare(QStringLiteral("SELECT archive_drop_months(?)"));
    query.addBindValue(qint64(bound.at - (bound.byTesterClock ? FarthestDays * MillisecondsOfDay : 0)));
    if (!database.Run(query) || !query.next())
        return false;
    *removed += query.value(0).toLongLong();
    return true;
}

// The last day of which runs will be removed, if any.
std::optional<qint64> LastDay(Database& database, const TimeBound& bound)
{
    const QString condition = bound.byTesterClock ? testerClock : utc;
    QSqlQuery query = database.Prepare(
        QStringLiteral("SELECT max(start + coalesce(utc_offset, 0) * 60000) FROM run WHERE start >= ? AND ") +
        condition);
    query.addBindValue(qint64(bound.at - 2 * FarthestDays * MillisecondsOfDay));
    query.addBindValue(qint64(bound.at));
    if (!database.Run(query) || !query.next() || query.isNull(0))
        return std::nullopt;
    return DayOf(query.value(0).toLongLong(), std::nullopt);
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
        const qint64 lastDay = LastDay(database, bound).value_or(day - FarthestDays);
        if ((database.IsPostgreSql() && !DropMonths(database, bound, removed)) || !remove(failures) ||
            !remove(values) || !remove(runs))
            return false;
        *removed += affected;
        return RemoveSummaries(database, day - FarthestDays) &&
               RenewSummaries(database, summaries, day - FarthestDays, lastDay) && summaries.Write() &&
               database.Execute(units);
    });
}

} // namespace ZYN
