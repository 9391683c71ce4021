#include "archive/SummaryWriter.h"

#include "archive/SqlValue.h"
#include "archive/StartOfRun.h"

namespace ZYN {

namespace {

// More at once would fill the memory while all are made.
constexpr std::size_t cellsKept = 500;

const QString keyColumns =
    QStringLiteral("u.product, r.station, r.layout, coalesce(r.limits, 0), r.start, r.utc_offset");

// A start that cannot be read has no room for an offset.
const QString testersClock =
    QStringLiteral("CASE WHEN r.start < %1 THEN r.start + coalesce(r.utc_offset, 0) * 60000 "
                   "ELSE r.start END")
        .arg(unreadableStart);

QString FindSql(bool isPostgreSql)
{
    const QString lock = isPostgreSql ? QStringLiteral(" FOR NO KEY UPDATE") : QString();
    return QStringLiteral("SELECT id, runs, %1 FROM summary WHERE product = ? AND station = ? AND layout = ? "
                          "AND limits = ? AND day = ?%2")
        .arg(SummaryColumns().join(QLatin1String(", ")), lock);
}

QString InsertSql()
{
    const QStringList& columns = SummaryColumns();
    return QStringLiteral("INSERT INTO summary(product, station, layout, limits, day, runs, %1) VALUES(%2) "
                          "ON CONFLICT DO NOTHING RETURNING id")
        .arg(columns.join(QLatin1String(", ")),
             QStringList(columns.size() + 6, QStringLiteral("?")).join(QLatin1String(", ")));
}

QString UpdateSql()
{
    return QStringLiteral("UPDATE summary SET runs = ?, %1 = ? WHERE id = ?")
        .arg(SummaryColumns().join(QLatin1String(" = ?, ")));
}

QString ValuesSql(bool isPostgreSql, const QString& condition)
{
    const QString join =
        isPostgreSql ? QStringLiteral("v.start = r.start AND v.run = r.id") : QStringLiteral("v.run = r.id");
    return QStringLiteral("SELECT %1, v.vals, v.codes, v.texts FROM run r JOIN unit u ON u.id = r.unit "
                          "JOIN run_values v ON %2 WHERE r.current = 1%3")
        .arg(keyColumns, join, condition);
}

SummaryKey KeyOf(const QSqlQuery& row)
{
    const auto offset = row.isNull(5) ? std::nullopt : std::optional(row.value(5).toInt());
    return {row.value(0).toString(), row.value(1).toString(), row.value(2).toLongLong(),
            row.value(3).toLongLong(), DayOf(row.value(4).toLongLong(), offset)};
}

// Of a row that begins with the columns of the key.
void AddRow(const QSqlQuery& row, SummaryCell* cell)
{
    const auto bytes = [&](int column) { return row.value(column).toString().toUtf8(); };
    cell->AddKept(bytes(6), bytes(7), bytes(8));
}

void BindKey(QSqlQuery& query, const SummaryKey& key)
{
    query.addBindValue(key.product);
    query.addBindValue(key.station);
    for (const qint64 number : {key.layout, key.limits, key.day})
        query.addBindValue(number);
}

void BindCell(QSqlQuery& query, const SummaryCell& cell, ArrayStyle style)
{
    query.addBindValue(qint64(cell.runs));
    for (const QVariant& array : ArraysOfSummary(cell, style))
        query.addBindValue(array);
}

} // namespace

SummaryWriter::SummaryWriter(Database& database)
    : m_database(database)
    , m_style(database.IsPostgreSql() ? ArrayStyle::PostgreSql : ArrayStyle::Json)
{
    const bool isServer = database.IsPostgreSql();
    m_find = database.Prepare(FindSql(isServer));
    m_insert = database.Prepare(InsertSql());
    m_update = database.Prepare(UpdateSql());
    m_remove = database.Prepare(QStringLiteral("DELETE FROM summary WHERE id = ?"));
    m_runs = database.Prepare(
        ValuesSql(isServer, QStringLiteral(" AND r.start >= ? AND r.start <= ? AND %1 >= ? AND %1 <= ? AND "
                                           "u.product = ? AND r.station = ? AND r.layout = ? AND "
                                           "coalesce(r.limits, 0) = ?")
                                .arg(testersClock)));
    m_keyOfRun = database.Prepare(QStringLiteral("SELECT %1 FROM run r JOIN unit u ON u.id = r.unit WHERE "
                                                 "r.start = ? AND r.id = ?")
                                      .arg(keyColumns));
}

void SummaryWriter::Forget()
{
    m_cells.clear();
    m_renewed.clear();
}

void SummaryWriter::Add(const Run& run, qint64 layout, qint64 limits)
{
    m_cells[{SqlText(run.product).toString(), SqlText(run.station).toString(), layout, limits,
             DayOf(StartOf(run), run.utcOffset)}]
        .Add(run);
}

bool SummaryWriter::RenewFor(std::int64_t start, std::int64_t run)
{
    m_keyOfRun.addBindValue(qint64(start));
    m_keyOfRun.addBindValue(qint64(run));
    if (!m_database.Run(m_keyOfRun) || !m_keyOfRun.next())
        return false;
    Renew(KeyOf(m_keyOfRun));
    m_keyOfRun.finish();
    return true;
}

bool SummaryWriter::Write()
{
    for (const SummaryKey& key : m_renewed)
        m_cells[key]; // one order for all rows
    for (const auto& [key, cell] : m_cells)
        if (!WriteCell(key, cell))
            return false;
    Forget();
    return true;
}

bool SummaryWriter::WriteCell(const SummaryKey& key, const SummaryCell& cell)
{
    const bool isRenewed = m_renewed.contains(key);
    // Found, or made; or found now, as another has made it in between.
    for (int attempt = 0; attempt < 2; ++attempt) {
        SummaryCell kept;
        const qint64 id = Find(key, &kept);
        if (isRenewed)
            kept = {};
        if (id < 0 || (isRenewed && !ReadRuns(key, &kept)))
            return false;
        if (!isRenewed)
            kept.Merge(cell);
        if (id > 0)
            return Replace(id, kept);
        bool isWritten = kept.runs == 0;
        if (!isWritten && !Insert(key, kept, &isWritten))
            return false;
        if (isWritten)
            return true;
    }
    return false;
}

qint64 SummaryWriter::Find(const SummaryKey& key, SummaryCell* cell)
{
    BindKey(m_find, key);
    if (!m_database.Run(m_find))
        return -1;
    qint64 id = 0;
    if (m_find.next()) {
        id = m_find.value(0).toLongLong();
        cell->runs = m_find.value(1).toLongLong();
        QList<QByteArray> arrays;
        for (int column = 0; column < SummaryColumns().size(); ++column)
            arrays.append(m_find.value(2 + column).toString().toUtf8());
        cell->figures = FiguresOfSummary(arrays);
    }
    m_find.finish();
    return id;
}

bool SummaryWriter::Insert(const SummaryKey& key, const SummaryCell& cell, bool* isWritten)
{
    BindKey(m_insert, key);
    BindCell(m_insert, cell, m_style);
    if (!m_database.Run(m_insert))
        return false;
    *isWritten = m_insert.next();
    m_insert.finish();
    return true;
}

bool SummaryWriter::Replace(qint64 id, const SummaryCell& cell)
{
    QSqlQuery& query = cell.runs > 0 ? m_update : m_remove;
    if (cell.runs > 0)
        BindCell(query, cell, m_style);
    query.addBindValue(id);
    return m_database.Run(query);
}

bool SummaryWriter::ReadRuns(const SummaryKey& key, SummaryCell* cell)
{
    const bool isReadable = key.day != unreadableDay;
    const qint64 first = isReadable ? key.day * millisecondsOfDay : qint64(unreadableStart);
    const qint64 last = isReadable ? first + millisecondsOfDay - 1 : first;
    const qint64 slack = isReadable ? farthestDays * millisecondsOfDay : 0;
    for (const qint64 bound : {first - slack, last + slack, first, last})
        m_runs.addBindValue(bound);
    m_runs.addBindValue(key.product);
    m_runs.addBindValue(key.station);
    m_runs.addBindValue(key.layout);
    m_runs.addBindValue(key.limits);
    if (!m_database.Run(m_runs))
        return false;
    while (m_runs.next())
        AddRow(m_runs, cell);
    m_runs.finish();
    return true;
}

// A portion at a time: a server would send all rows at once.
bool SummaryWriter::MakeAll()
{
    if (!m_database.IsPostgreSql())
        return AddAll(ValuesSql(false, QString())).has_value() && Write();
    if (!m_database.Execute(QStringLiteral("DECLARE all_runs NO SCROLL CURSOR FOR ") +
                            ValuesSql(true, QString())))
        return false;
    std::optional<int> rows;
    do
        rows = AddAll(QStringLiteral("FETCH 200 FROM all_runs"));
    while (rows && *rows > 0);
    return rows && m_database.Execute(QStringLiteral("CLOSE all_runs")) && Write();
}

std::optional<int> SummaryWriter::AddAll(const QString& sql)
{
    QSqlQuery runs(m_database.GetConnection());
    runs.setForwardOnly(!m_database.IsPostgreSql()); // whose driver then allows one query at a time
    if (!m_database.Run(runs, sql))
        return std::nullopt;
    int rows = 0;
    for (; runs.next(); ++rows) {
        AddRow(runs, &m_cells[KeyOf(runs)]);
        if (m_cells.size() >= cellsKept && !Write())
            return std::nullopt;
    }
    return rows;
}

} // namespace ZYN
