#include "archive/Database.h"

#include "archive/ArchiveTexts.h"
#include "archive/DatabaseError.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtSql/QSqlError>

#include <atomic>

namespace ZYN {

namespace {

constexpr int attempts = 10;

const QString sqliteDriver = QStringLiteral("QSQLITE");

// Another writer commits after a second at the latest; a folder on a slow network drive takes its time.
const QString busyTimeout = QStringLiteral("QSQLITE_BUSY_TIMEOUT=60000");

QString NewConnectionName()
{
    static std::atomic<unsigned> last = 0;
    return QStringLiteral("zyn-archive-%1").arg(++last);
}

// Without comments: Qt takes one behind a statement for another statement.
QStringList StatementsOf(const QString& script)
{
    QStringList statements;
    QString statement;
    for (const QString& line : script.split(QLatin1Char('\n'))) {
        const QString code = line.section(QStringLiteral("--"), 0, 0).trimmed();
        if (code.isEmpty())
            continue;
        statement += code + QLatin1Char('\n');
        if (code.endsWith(QLatin1Char(';'))) {
            statements.append(statement);
            statement.clear();
        }
    }
    return statements;
}

} // namespace

Database::~Database()
{
    if (!IsOpen())
        return;
    GetConnection().close();
    QSqlDatabase::removeDatabase(m_name);
}

bool Database::Open(const ArchiveUrl& url, Access access)
{
    m_url = url;
    m_kind = url.isPostgreSql ? Kind::PostgreSql : Kind::Sqlite;
    return url.isPostgreSql ? OpenPostgreSql() : OpenSqlite(access);
}

bool Database::OpenTemporary()
{
    m_url = {};
    m_url.shown = ArchiveTexts::tr("temporary archive");
    m_kind = Kind::Sqlite;
    // Nobody else sees it and nothing of it must last: no locks, no journal on disk.
    return Connect(sqliteDriver, QString(), {}) && Execute(QStringLiteral("PRAGMA page_size = 16384")) &&
           Execute(QStringLiteral("PRAGMA journal_mode = MEMORY")) &&
           Execute(QStringLiteral("PRAGMA synchronous = OFF")) &&
           Execute(QStringLiteral("PRAGMA cache_size = -65536"));
}

bool Database::Connect(const QString& driver, const QString& database, const QString& options)
{
    if (!QSqlDatabase::isDriverAvailable(driver)) {
        m_error = ArchiveTexts::tr("Qt's driver %1 is missing; install the package %2")
                      .arg(driver, IsPostgreSql() ? QStringLiteral("libqt6sql6-psql")
                                                  : QStringLiteral("libqt6sql6-sqlite"));
        return false;
    }
    if (IsOpen())
        QSqlDatabase::removeDatabase(m_name);
    m_name = NewConnectionName();
    QSqlDatabase connection = QSqlDatabase::addDatabase(driver, m_name);
    connection.setDatabaseName(database);
    connection.setConnectOptions(options);
    if (IsPostgreSql()) {
        connection.setHostName(m_url.host);
        connection.setUserName(m_url.user);
        connection.setPort(m_url.port);
    }
    return connection.open() || Fail(connection.lastError());
}

bool Database::OpenSqlite(Access access)
{
    if (access == Access::ReadOnly)
        return OpenSqliteToRead();
    if (!Connect(sqliteDriver, m_url.file, busyTimeout))
        return false;
    return access == Access::Existing || (Execute(QStringLiteral("PRAGMA page_size = 16384")) &&
                                          Execute(QStringLiteral("PRAGMA journal_mode = WAL")));
}

bool Database::OpenSqliteToRead()
{
    // The file is first read by a statement.
    const auto reads = [this] { return Value(QStringLiteral("PRAGMA schema_version")).isValid(); };
    const QString readOnly = QStringLiteral("QSQLITE_OPEN_READONLY");
    if (Connect(sqliteDriver, m_url.file, busyTimeout + QLatin1Char(';') + readOnly) && reads())
        return true;
    const QFileInfo file(m_url.file);
    if (QFileInfo(file.path()).isWritable() || !file.isReadable())
        return false;
    // To read, SQLite makes files beside it, where it may. Where nobody writes they are not needed; but what
    // stands in a journal would be missing.
    if (QFileInfo(m_url.file + QStringLiteral("-wal")).size() > 0) {
        m_error = ArchiveTexts::tr(
                      "%1: its folder is read-only, and runs wait in %1-wal; copy both files to a folder "
                      "that can be written")
                      .arg(m_url.shown);
        return false;
    }
    QUrl url = QUrl::fromLocalFile(file.absoluteFilePath());
    url.setQuery(QStringLiteral("immutable=1"));
    return Connect(sqliteDriver, url.toString(QUrl::FullyEncoded),
                   readOnly + QStringLiteral(";QSQLITE_OPEN_URI")) &&
           reads();
}

bool Database::OpenPostgreSql()
{
    return Connect(QStringLiteral("QPSQL"), m_url.database, m_url.options);
}

QSqlQuery Database::Prepare(const QString& sql) const
{
    QSqlQuery query(GetConnection());
    query.setForwardOnly(!IsPostgreSql()); // whose driver then allows one query at a time
    query.prepare(sql);
    return query;
}

bool Database::Run(QSqlQuery& query)
{
    return query.exec() || Fail(query.lastError());
}

bool Database::Run(QSqlQuery& query, const QString& sql)
{
    return query.exec(sql) || Fail(query.lastError());
}

bool Database::Execute(const QString& sql)
{
    QSqlQuery query(GetConnection());
    return query.exec(sql) || Fail(query.lastError());
}

QVariant Database::Value(const QString& sql)
{
    QSqlQuery query(GetConnection());
    if (!query.exec(sql)) {
        Fail(query.lastError());
        return {};
    }
    return query.next() ? query.value(0) : QVariant();
}

bool Database::RunScript(const QString& name)
{
    QFile file(QStringLiteral(":/zyn/archive/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = name + QStringLiteral(": ") + file.errorString();
        return false;
    }
    const QString script = QString::fromUtf8(file.readAll());
    if (IsPostgreSql())
        return Execute(script); // which runs them all
    for (const QString& statement : StatementsOf(script))
        if (!Execute(statement))
            return false;
    return true;
}

bool Database::InTransaction(const std::function<bool()>& body)
{
    // A transaction of SQLite that begins by reading cannot wait for another's end.
    const QString begin = IsPostgreSql() ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE");
    for (int attempt = 1;; ++attempt) {
        m_errorCode.clear();
        if (!Execute(begin))
            return false;
        if (body() && Execute(QStringLiteral("COMMIT")))
            return true;
        const QString error = m_error, code = m_errorCode;
        const bool repeat = attempt < attempts && IsWorthRepeating(code);
        Execute(QStringLiteral("ROLLBACK"));
        m_error = error;
        m_errorCode = code;
        if (!repeat)
            return false;
    }
}

bool Database::IsFaultOfData() const
{
    return ZYN::IsFaultOfData(m_errorCode, IsPostgreSql());
}

bool Database::Fail(const QSqlError& error)
{
    if (error.nativeErrorCode() == QLatin1String("25P02")) // only says that an earlier statement failed
        return false;
    m_error = TextOfError(error, m_url.shown, IsPostgreSql());
    m_errorCode = error.nativeErrorCode();
    return false;
}

} // namespace ZYN
