#include "archive/Removal.h"

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

} // namespace

bool RemoveRunsBefore(Database& database, const TimeBound& bound, std::int64_t* removed)
{
    const auto remove = [&](const QString& sql) {
        QSqlQuery query = database.Prepare(sql.arg(bound.byTesterClock ? testerClock : utc));
        query.addBindValue(qint64(bound.at));
        if (!database.Run(query))
            return false;
        *removed = query.numRowsAffected();
        return true;
    };
    return database.InTransaction(
        [&] { return remove(failures) && remove(values) && remove(runs) && database.Execute(units); });
}

} // namespace ZYN
