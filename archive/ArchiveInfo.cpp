#include "archive/ArchiveInfo.h"

#include "archive/Archive.h"
#include "archive/DatabaseError.h"
#include "archive/StartOfRun.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

namespace ZYN {

namespace {

const QString counts =
    QStringLiteral("SELECT count(*), coalesce(sum(1 - current), 0), count(DISTINCT program), min(start), "
                   "max(CASE WHEN start < 9223372036854775807 THEN start END) FROM run");
const QString units =
    QStringLiteral("SELECT count(*), count(DISTINCT product), count(DISTINCT lot) FROM unit WHERE "
                   "is_panel = 0");
const QString sqliteValues =
    QStringLiteral("SELECT coalesce(sum(json_array_length(codes)), 0) FROM run_values");
const QString sqliteSize =
    QStringLiteral("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
const QString postgreSqlValues =
    QStringLiteral("SELECT coalesce(sum(cardinality(codes)), 0) FROM run_values");
const QString postgreSqlSize = QStringLiteral("SELECT pg_database_size(current_database())");

} // namespace

std::optional<ArchiveInfo> AskInfo(const Archive& archive)
{
    const bool isServer = archive.IsPostgreSql();
    QSqlQuery query(archive.GetDatabase());
    const auto ask = [&](const QString& sql) {
        if (query.exec(sql) && query.next())
            return true;
        archive.SetErrorText(TextOfError(query.lastError(), archive.GetShownUrl(), isServer));
        return false;
    };
    ArchiveInfo info;
    info.kind = isServer ? QStringLiteral("PostgreSQL") : QStringLiteral("SQLite");
    if (!ask(isServer ? QStringLiteral("SELECT version FROM archive_meta")
                      : QStringLiteral("PRAGMA user_version")))
        return std::nullopt;
    info.version = query.value(0).toInt();
    if (!ask(counts))
        return std::nullopt;
    info.replaced = query.value(1).toLongLong();
    info.runs = query.value(0).toLongLong() - info.replaced;
    info.programs = query.value(2).toLongLong();
    if (const QVariant last = query.value(4); !last.isNull()) {
        info.first = query.value(3).toLongLong();
        info.last = last.toLongLong();
    }
    if (!ask(units))
        return std::nullopt;
    info.units = query.value(0).toLongLong();
    info.products = query.value(1).toLongLong();
    info.lots = query.value(2).toLongLong();
    if (!ask(isServer ? postgreSqlValues : sqliteValues))
        return std::nullopt;
    info.values = query.value(0).toLongLong();
    if (!ask(isServer ? postgreSqlSize : sqliteSize))
        return std::nullopt;
    info.bytes = query.value(0).toLongLong();
    return info;
}

} // namespace ZYN
