#pragma once

#include <QtCore/QString>

#include <optional>

namespace ZYN {

/// Where an archive is: a file, or a database of a PostgreSQL server.
struct ArchiveUrl {
    bool isPostgreSql = false;
    QString shown; ///< for messages; without a password
    QString file;  ///< of SQLite

    // Of the server; what is empty is left to the client library.
    QString host, user, database, options;
    int port = -1;

    /// \param error set, in one sentence, where the answer is none
    static std::optional<ArchiveUrl> Parse(const QString& url, QString* error);
    static bool IsServer(const QString& url);
};

} // namespace ZYN
