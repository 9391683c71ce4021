#include "archive/RunStatements.h"

namespace ZYN {

namespace {

const QString findUnit = QStringLiteral(
    "SELECT id FROM unit WHERE product = ? AND lot = ? AND serial = ? AND ident = ? AND wafer = ? AND "
    "is_panel = ? AND own = ?");
const QString insertUnit =
    QStringLiteral("INSERT INTO unit(product, lot, serial, ident, wafer, is_panel, own, seen_ident) "
                   "VALUES(?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT DO NOTHING RETURNING id");
const QString findKnown =
    QStringLiteral("SELECT r.id, v.content, v.revision, r.first FROM run_values v JOIN run r ON "
                   "r.start = v.start AND r.id = v.run WHERE v.start = ? AND v.key = ? ORDER BY v.revision");
const QString findEarliest = QStringLiteral(
    "SELECT id, start, run_index, test_index, first FROM run WHERE unit = ? AND program = ? AND "
    "current = 1 ORDER BY start, run_index, test_index, id LIMIT 1");
const QString insertRun = QStringLiteral(
    "INSERT INTO run(%1unit, program, start, utc_offset, run_index, test_index, code, first, is_panel, "
    "station, position, site, x, y, hard_bin, soft_bin, layout, limits) "
    "VALUES(%2?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING id");
const QString insertValues = QStringLiteral("INSERT INTO run_values(%1start, run, key, revision, content, "
                                            "start_text, duration, operator, panel, source, "
                                            "comment, vals, codes, seconds, texts, comments, attributes) "
                                            "VALUES(%2?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

} // namespace

const RunStatements& StatementsFor(Database::Kind kind)
{
    static const RunStatements sqlite{
        .findUnit = findUnit,
        .insertUnit = insertUnit,
        .findKnown = findKnown,
        .replace = QStringLiteral("UPDATE run SET current = 0, first = 0 WHERE id = ?"),
        .dropFailures = QStringLiteral("DELETE FROM failure WHERE run = ?"),
        .findEarliest = findEarliest,
        .unmark = QStringLiteral("UPDATE run SET first = 0 WHERE id = ?"),
        .insertRun = insertRun.arg(QString(), QString()),
        .insertValues = insertValues.arg(QString(), QString()),
        .insertFailure =
            QStringLiteral("INSERT INTO failure(run, code, num, is_first, component) "
                           "SELECT ?, ?, ?, ?, component FROM layout_item WHERE layout = ? AND pos = ?"),
    };
    static const RunStatements postgreSql{
        .findUnit = findUnit + QStringLiteral(" FOR NO KEY UPDATE"),
        .insertUnit = insertUnit,
        .findKnown = findKnown,
        .replace = QStringLiteral("UPDATE run SET current = 0, first = 0 WHERE start = ? AND id = ?"),
        .dropFailures = QStringLiteral("DELETE FROM failure WHERE start = ? AND run = ?"),
        .findEarliest = findEarliest,
        .unmark = QStringLiteral("UPDATE run SET first = 0 WHERE start = ? AND id = ?"),
        .insertRun = insertRun.arg(QStringLiteral("product, "), QStringLiteral("?, ")),
        .insertValues = insertValues.arg(QStringLiteral("product, "), QStringLiteral("?, ")),
        .insertFailure = QStringLiteral("INSERT INTO failure(start, product, run, code, num, is_first, "
                                        "component) SELECT CAST(? AS bigint), "
                                        "CAST(? AS text), CAST(? AS bigint), CAST(? AS smallint), CAST(? AS "
                                        "float8), CAST(? AS smallint), component "
                                        "FROM layout_item WHERE layout = ? AND pos = ?"),
        .makeMonth = QStringLiteral("SELECT archive_month(?)"),
    };
    return kind == Database::Kind::PostgreSql ? postgreSql : sqlite;
}

} // namespace ZYN
