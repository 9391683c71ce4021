#include "watch/WatchStatus.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonDocument>
#include <QtCore/QSaveFile>

namespace ZYN::Tool {

namespace {

QString Now()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
}

QJsonValue NullIfEmpty(const QJsonObject& object)
{
    return object.isEmpty() ? QJsonValue() : QJsonValue(object);
}

} // namespace

WatchStatus::WatchStatus(const QString& path)
    : m_path(path)
{
}

void WatchStatus::Archived(const QString& input)
{
    ++m_archived;
    m_last = {{QStringLiteral("input"), input}, {QStringLiteral("time"), Now()}};
}

void WatchStatus::Failed(const QString& input, const QString& reason)
{
    ++m_failed;
    m_lastFailed = {{QStringLiteral("input"), input},
                    {QStringLiteral("time"), Now()},
                    {QStringLiteral("reason"), reason}};
}

void WatchStatus::Tell(const QString& state, const QString& error, qint64 waiting)
{
    if (m_path.isEmpty())
        return;
    const QByteArray text =
        QJsonDocument(
            QJsonObject{{QStringLiteral("state"), state},
                        {QStringLiteral("error"), error.isEmpty() ? QJsonValue() : QJsonValue(error)},
                        {QStringLiteral("waiting"), waiting},
                        {QStringLiteral("archived"), m_archived},
                        {QStringLiteral("failed"), m_failed},
                        {QStringLiteral("last"), NullIfEmpty(m_last)},
                        {QStringLiteral("last_failed"), NullIfEmpty(m_lastFailed)}})
            .toJson(QJsonDocument::Indented);
    if (text == m_written)
        return;
    QSaveFile file(m_path);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        m_written = text;
}

} // namespace ZYN::Tool
