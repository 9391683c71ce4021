#include "DurationText.h"

#include "DecimalText.h"
#include "ShortText.h"

#include <cmath>

namespace ZYN::DurationText {

using namespace Qt::StringLiterals;

QString Milliseconds(double seconds)
{
    return DecimalText::FromReal(seconds, 3);
}

QString ForPeople(double seconds)
{
    // Beyond this a text of hours says nothing, and the rounding below would not fit its integer.
    constexpr double longestSeconds = 1e12;
    if (!(std::abs(seconds) < longestSeconds))
        return DecimalText::FromReal(seconds) + QStringLiteral(" s");
    if (seconds < 0)
        return QLatin1Char('-') + ForPeople(-seconds);

    const qint64 milliseconds = std::llround(seconds * 1000);
    ShortText<64> text; // three numbers need half of it
    if (milliseconds < 60'000) {
        text.AddNumber(milliseconds / 1000);
        text.Add('.');
        text.AddNumber(milliseconds % 1000, 3);
    } else {
        const qint64 whole = std::llround(seconds);
        const bool hours = whole >= 3600;
        if (hours) {
            text.AddNumber(whole / 3600);
            text.Add(" h "_L1);
        }
        text.AddNumber(whole / 60 % 60, hours ? 2 : 1);
        text.Add(" min "_L1);
        text.AddNumber(whole % 60, 2);
    }
    text.Add(" s"_L1);
    return text.ToString();
}

} // namespace ZYN::DurationText
