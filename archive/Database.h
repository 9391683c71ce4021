#pragma once

#include "archive/Archive.h"
#include "archive/ArchiveUrl.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include <functional>

namespace ZYN {

/// The connection of an archive, with what the two databases do differently. On one thread.
class Database {
public:
    enum class Kind { Sqlite, PostgreSql };
    /// What there is behind the address.
    enum class Access { Existing, ReadOnly, New };

    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    bool Open(const ArchiveUrl& url, Access access);
    /// A SQLite database without a name.
    bool OpenTemporary();

    bool IsOpen() const { return !m_name.isEmpty(); }
    Kind GetKind() const { return m_kind; }
    bool IsPostgreSql() const { return m_kind == Kind::PostgreSql; }
    /// What it is called in messages.
    const QString& GetShownUrl() const { return m_url.shown; }
    QSqlDatabase GetConnection() const { return QSqlDatabase::database(m_name, false); }

    /// A prepared query; one that does not prepare fails when it runs.
    QSqlQuery Prepare(const QString& sql) const;
    /// Runs a prepared query, keeps what went wrong.
    bool Run(QSqlQuery& query);
    /// The same of a statement that a server does not prepare.
    bool Run(QSqlQuery& query, const QString& sql);
    bool Execute(const QString& sql);
    /// The first column of the first row; none where there is no row.
    QVariant Value(const QString& sql);
    /// Runs all statements of a resource, "sqlite.sql".
    bool RunScript(const QString& name);

    /// Runs the body in a transaction that writes: all of it or nothing. Repeated where the server chose it
    /// as the victim of a deadlock.
    bool InTransaction(const std::function<bool()>& body);

    const QString& GetErrorText() const { return m_error; }
    void SetErrorText(const QString& text) { m_error = text; }
    /// Whether the last failure was about the data that were to be written.
    bool IsFaultOfData() const;

private:
    bool OpenSqlite(Access access);
    bool OpenSqliteToRead();
    bool OpenPostgreSql();
    bool Connect(const QString& driver, const QString& database, const QString& options);
    bool Fail(const QSqlError& error);

    QString m_name; // of the connection
    ArchiveUrl m_url;
    Kind m_kind = Kind::Sqlite;
    QString m_error;
    QString m_errorCode; // as the database numbers it
};

} // namespace ZYN
