#include "archive/questions/ChosenRuns.h"

#include "archive/Archive.h"
#include "archive/DatabaseError.h"
#include "archive/StartOfRun.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>
#include <QtSql/QSqlError>
#include <QtSql/QSqlField>

namespace ZYN {

namespace {

// Clocks are at most 14 hours from UTC, and there are wrong ones.
constexpr std::int64_t farthestClock = std::int64_t(25) * 3600 * 1000;

// The same unit in several lots is called by its first row.
const QString joinedRuns =
    QStringLiteral("WITH joined AS (SELECT id, min(id) OVER (PARTITION BY product, "
                   "serial, ident, wafer, is_panel, own) AS same "
                   "FROM unit), runs AS (SELECT %1x.id, x.start, x.utc_offset, "
                   "x.run_index, x.test_index, x.program, x.code, x.current, "
                   "x.is_panel, x.station, x.position, x.site, x.x, x.y, x.hard_bin, x.layout, "
                   "x.limits, x.unit AS home, j.same AS unit, "
                   "CASE WHEN x.first = 1 AND row_number() OVER (PARTITION BY j.same, "
                   "x.program ORDER BY x.start, x.run_index, "
                   "x.test_index, x.id) = 1 THEN 1 ELSE 0 END AS first FROM run x "
                   "JOIN joined j ON j.id = x.unit WHERE x.current = 1) ");

// A text without characters that a database does not take for NULL.
QString NotNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

bool Fail(const Archive& archive, const QSqlError& error)
{
    archive.SetErrorText(TextOfError(error, archive.GetShownUrl(), archive.IsPostgreSql()));
    return false;
}

} // namespace

std::optional<QSqlQuery> Ask(const Archive& archive, const QString& sql, const QVariantList& values)
{
    QSqlQuery query(archive.GetDatabase());
    query.setForwardOnly(true); // rows come one by one, and are not kept
    bool isGood = query.prepare(sql);
    for (const QVariant& value : values)
        query.addBindValue(value);
    isGood = isGood && query.exec();
    if (!isGood && !Fail(archive, query.lastError()))
        return std::nullopt;
    return query;
}

bool IsComplete(const Archive& archive, const QSqlQuery& query)
{
    return query.lastError().type() == QSqlError::NoError || Fail(archive, query.lastError());
}

ChosenRuns::ChosenRuns(const Archive& archive, const RunFilter& filter, Of of)
    : m_archive(archive)
    , m_isPostgreSql(archive.IsPostgreSql())
    , m_with(filter.acrossLots
                 ? joinedRuns.arg(archive.IsPostgreSql() ? QStringLiteral("x.product, ") : QString())
                 : QString())
    , m_runs(filter.acrossLots ? QStringLiteral("runs")
                               : QStringLiteral("(SELECT *, unit AS home FROM run WHERE current = 1)"))
{
    Choose(filter, of);
}

void ChosenRuns::Choose(const RunFilter& filter, Of of)
{
    if (of == Of::Units)
        Add(QStringLiteral("r.is_panel = 0"), {});
    if (!filter.station.isEmpty())
        Add(QStringLiteral("r.station = ?"), {filter.station});
    if (!filter.program.isEmpty())
        Add(QStringLiteral("r.program = ?"), {filter.program});
    QStringList ofUnit;
    QVariantList values;
    if (!filter.serial.isEmpty()) {
        ofUnit.append(QStringLiteral("(serial = ? OR (serial = '' AND ident = ?))"));
        values << filter.serial << filter.serial;
    }
    const bool isOfProduct = filter.ofOneLot || !filter.product.isEmpty();
    if (filter.ofOneLot || !filter.lot.isEmpty()) {
        ofUnit.append(QStringLiteral("lot = ?"));
        values << NotNull(filter.lot);
    }
    if (isOfProduct && m_isPostgreSql) {
        // Tells which of several servers to ask.
        Add(QStringLiteral("r.product = ?"), {NotNull(filter.product)});
        QSqlField product(QString(), QMetaType::fromType<QString>());
        product.setValue(NotNull(filter.product));
        m_ofProduct =
            QStringLiteral(" AND product = ") + m_archive.GetDatabase().driver()->formatValue(product);
    }
    if (isOfProduct && (!m_isPostgreSql || !ofUnit.isEmpty())) {
        ofUnit.append(QStringLiteral("product = ?"));
        values << NotNull(filter.product);
    }
    if (!ofUnit.isEmpty())
        Add(IsOneOf(QStringLiteral("r.home"),
                    QStringLiteral("SELECT id FROM unit WHERE ") + ofUnit.join(QLatin1String(" AND "))),
            values);
    AddTime(filter.since, true);
    AddTime(filter.until, false);
}

void ChosenRuns::Add(const QString& condition, const QVariantList& values)
{
    m_conditions.append(condition);
    m_values += values;
}

// The column alone finds rows by index and by partition; what the clock showed says which of them.
void ChosenRuns::AddTime(const std::optional<TimeBound>& bound, bool isSince)
{
    if (!bound)
        return;
    const QString comparison = isSince ? QStringLiteral(">=") : QStringLiteral("<");
    const std::int64_t slack = !bound->byTesterClock ? 0 : isSince ? -farthestClock : farthestClock;
    Add(QStringLiteral("r.start %1 ?").arg(comparison), {qint64(bound->at + slack)});
    Add(QStringLiteral("r.start < ?"), {qint64(unreadableStart)});
    if (bound->byTesterClock)
        Add(TesterClock() + QStringLiteral(" %1 ?").arg(comparison), {qint64(bound->at)});
}

std::optional<QSqlQuery> ChosenRuns::Select(const QString& columns, const QString& joins,
                                            const QString& condition, const QString& rest) const
{
    QStringList conditions = m_conditions;
    if (!condition.isEmpty())
        conditions.append(condition);
    if (conditions.isEmpty())
        conditions.append(QStringLiteral("1 = 1"));
    return Ask(m_archive,
               m_with + QStringLiteral("SELECT ") + columns + QStringLiteral(" FROM ") + m_runs +
                   QStringLiteral(" r") + joins + QStringLiteral(" WHERE ") +
                   conditions.join(QLatin1String(" AND ")) + QLatin1Char(' ') + rest,
               m_values);
}

// Of several servers each joins its own: by the product, which divides them.
QString ChosenRuns::JoinValues() const
{
    return m_isPostgreSql
               ? QStringLiteral(
                     " JOIN run_values v ON v.product = r.product AND v.start = r.start AND v.run = r.id")
               : QStringLiteral(" JOIN run_values v ON v.run = r.id");
}

QString ChosenRuns::JoinFailures() const
{
    return m_isPostgreSql
               ? QStringLiteral(
                     " JOIN failure f ON f.product = r.product AND f.start = r.start AND f.run = r.id")
               : QStringLiteral(" JOIN failure f ON f.run = r.id");
}

QString ChosenRuns::JoinHome() const
{
    return m_isPostgreSql ? QStringLiteral(" JOIN unit u ON u.product = r.product AND u.id = r.home")
                          : QStringLiteral(" JOIN unit u ON u.id = r.home");
}

QString ChosenRuns::AlsoGroupBy() const
{
    return m_isPostgreSql ? QStringLiteral(", r.product") : QString();
}

QString ChosenRuns::JoinFirstFailure() const
{
    return QStringLiteral(" LEFT") + JoinFailures() + QStringLiteral(" AND f.is_first = 1");
}

QString ChosenRuns::HasRun(const QString& condition) const
{
    return IsOneOf(QStringLiteral("r.unit"),
                   QStringLiteral("SELECT unit FROM %1 y WHERE %2%3").arg(m_runs, condition, m_ofProduct));
}

// An array is sent to each of several servers; a subselect would have them send all their rows.
QString ChosenRuns::IsOneOf(const QString& column, const QString& ids) const
{
    return (m_isPostgreSql ? QStringLiteral("%1 = ANY(ARRAY(%2))") : QStringLiteral("%1 IN (%2)"))
        .arg(column, ids);
}

} // namespace ZYN
