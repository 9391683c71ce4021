#include "archive/Removal.h"

#include "archive/SummaryWriter.h"

namespace ZYN {

namespace {

// What starts at this time or later is not removed, whatever the tester's clock was: finds rows by index and
// by month.
qint64 End(const TimeBound& bound)
{
    return bound.at + (bound.byTesterClock ? farthestDays * millisecondsOfDay : 0);
}

// Before a time in UTC, or on the tester's clock.
QString IsBefore(const TimeBound& bound)
{
    const QString utc = QStringLiteral("start < %1").arg(End(bound));
    return bound.byTesterClock
               ? utc + QStringLiteral(" AND start < CAST(%1 AS bigint) - coalesce(utc_offset, 0) * 60000")
                           .arg(bound.at)
               : utc;
}

// Of runs before a time. \param table what has a row or several for each run
bool RemoveOfRuns(Database& database, const QString& table, const TimeBound& bound)
{
    const QString month =
        database.IsPostgreSql() ? QStringLiteral("start < %1 AND ").arg(End(bound)) : QString();
    return database.Execute(QStringLiteral("DELETE FROM %1 WHERE %2run IN (SELECT id FROM run WHERE %3)")
                                .arg(table, month, IsBefore(bound)));
}

bool RemoveRuns(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    QSqlQuery query = database.Prepare(QStringLiteral("DELETE FROM run WHERE ") + IsBefore(bound));
    if (!database.Run(query))
        return false;
    *removed += query.numRowsAffected();
    return true;
}

const QString units =
    QStringLiteral("DELETE FROM unit WHERE NOT EXISTS (SELECT 1 FROM run WHERE run.unit = unit.id)");

// A month at a time, of a server: its tables are dropped, whatever they hold.
bool DropMonths(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    QSqlQuery query = database.Prepare(QStringLiteral("SELECT archive_drop_months(?)"));
    query.addBindValue(qint64(bound.at - (bound.byTesterClock ? farthestDays * millisecondsOfDay : 0)));
    if (!database.Run(query) || !query.next())
        return false;
    *removed += query.value(0).toLongLong();
    return true;
}

// The last day of which runs will be removed, if any.
std::optional<qint64> LastDay(Database& database, const TimeBound& bound)
{
    QSqlQuery query = database.Prepare(
        QStringLiteral("SELECT max(start + coalesce(utc_offset, 0) * 60000) FROM run WHERE start >= ? AND ") +
        IsBefore(bound));
    query.addBindValue(qint64(bound.at - 2 * farthestDays * millisecondsOfDay));
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
    SummaryWriter summaries(database);
    const qint64 day = DayOf(bound.at, std::nullopt);
    return database.InTransaction([&] {
        *removed = 0;
        summaries.Forget();
        const qint64 lastDay = LastDay(database, bound).value_or(day - farthestDays);
        if ((database.IsPostgreSql() && !DropMonths(database, bound, removed)) ||
            !RemoveOfRuns(database, QStringLiteral("failure"), bound) ||
            !RemoveOfRuns(database, QStringLiteral("run_values"), bound) ||
            !RemoveRuns(database, bound, removed))
            return false;
        return RemoveSummaries(database, day - farthestDays) &&
               RenewSummaries(database, summaries, day - farthestDays, lastDay) && summaries.Write() &&
               database.Execute(units);
    });
}

} // namespace ZYN
