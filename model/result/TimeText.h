#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace ZYN::TimeText {

/// ISO 8601 with the offset from UTC, milliseconds only where there are any; empty for an invalid time.
inline QString FromTime(const QDateTime& time)
{
    if (!time.isValid())
        return QString();
    const Qt::DateFormat format = time.time().msec() == 0 ? Qt::ISODate : Qt::ISODateWithMs;
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(format);
}

/// Invalid for a text that is no ISO 8601 time.
inline QDateTime ToTime(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODateWithMs);
}

} // namespace ZYN::TimeText
