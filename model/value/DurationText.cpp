#include <ZYNCommon/DurationText.h>

#include <ZYNCommon/DecimalText.h>

#include <cmath>

namespace ZYN::DurationText {

namespace {

QString TwoDigits(qint64 value)
{
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

} // namespace

QString Milliseconds(double seconds)
{
    return DecimalText::FromReal(seconds, 3);
}

QString ForPeople(double seconds)
{
    // Beyond this a text of hours says nothing, and the rounding below would not fit its integer.
    constexpr double LongestSeconds = 1e12;
    if (!(std::abs(seconds) < LongestSeconds))
        return DecimalText::FromReal(seconds) + QStringLiteral(" s");
    if (seconds < 0)
        return QLatin1Char('-') + ForPeople(-seconds);

    const qint64 milliseconds = std::llround(seconds * 1000);
    if (milliseconds < 60'000)
        return QStringLiteral("%1.%2 s").arg(
            QString::number(milliseconds / 1000),
            QStringLiteral("%1").arg(milliseconds % 1000, 3, 10, QLatin1Char('0')));
    const qint64 whole = std::llround(seconds);
    if (whole < 3600)
        return QStringLiteral("%1 min %2 s").arg(QString::number(whole / 60), TwoDigits(whole % 60));
    return QStringLiteral("%1 h %2 min %3 s")
        .arg(QString::number(whole / 3600), TwoDigits(whole / 60 % 60), TwoDigits(whole % 60));
}

} // namespace ZYN::DurationText
