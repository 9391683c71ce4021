#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ZYN::Tool {

/// What a monitor wants to know about a watcher, kept in a file: a JSON object that is there whole at any
/// time.
class WatchStatus {
public:
    /// \param path empty: nowhere
    explicit WatchStatus(const QString& path);

    void Archived(const QString& input);
    void Failed(const QString& input, const QString& reason);
    /// \param state "watching", "waiting", "ended"
    /// \param error why it waits; empty else
    void Tell(const QString& state, const QString& error, qint64 waiting);

private:
    QString m_path;
    QJsonObject m_last;
    QJsonObject m_lastFailed;
    qint64 m_archived = 0;
    qint64 m_failed = 0;
    QByteArray m_written;
};

} // namespace ZYN::Tool
