#include "questions/TimeArgument.h"

#include "terminal/Problem.h"
#include "terminal/Texts.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

namespace ZYN::Tool {

namespace {

// Of an offset; empty means UTC here.
int MinutesOf(const QString& offset)
{
    if (offset.size() < 5)
        return 0;
    const int minutes = offset.mid(1, 2).toInt() * 60 + offset.last(2).toInt();
    return offset.startsWith(QLatin1Char('-')) ? -minutes : minutes;
}

std::optional<TimeBound> ParseTime(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^(\\d{4}-\\d\\d-\\d\\d)(?:[T ](\\d\\d:\\d\\d)(:\\d\\d)?(\\.\\d{3})?(Z|[+-]\\d\\d:?\\d\\d)?)?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    const QDate day = QDate::fromString(match.captured(1), Qt::ISODate);
    QTime time(0, 0);
    if (!match.captured(2).isEmpty()) {
        const QString seconds = match.captured(3).isEmpty() ? QStringLiteral(":00") : match.captured(3);
        time = QTime::fromString(match.captured(2) + seconds + match.captured(4), Qt::ISODateWithMs);
    }
    if (!match.hasMatch() || !day.isValid() || !time.isValid())
        return std::nullopt;
    const QString offset = match.captured(5);
    const qint64 at = QDateTime(day, time, Qt::UTC).toMSecsSinceEpoch() - qint64(MinutesOf(offset)) * 60000;
    return TimeBound{at, offset.isEmpty()};
}

} // namespace

std::optional<int> TakeTime(const QString& command, const char* option, const std::string& text,
                            TimeBound* bound)
{
    const QString given = QString::fromStdString(text);
    if (const std::optional<TimeBound> time = ParseTime(given)) {
        *bound = *time;
        return std::nullopt;
    }
    return WrongUsage(command, Texts::tr("%1: '%2' is no time").arg(QLatin1String(option), given),
                      Texts::tr("write a day as 2026-11-24, a time as 2026-11-24T13:00 or, with an offset, "
                                "2026-11-24T13:00+01:00"));
}

} // namespace ZYN::Tool
