#include "CellText.h"

#include <QtCore/QLocale>

#include <charconv>
#include <cmath>

namespace ZYN {

CellText CellText::Integer(qint64 number, QLatin1StringView before, QLatin1StringView after)
{
    char digits[24];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    CellText cell;
    cell.Add(before);
    cell.Add({digits, end});
    cell.Add(after);
    return cell;
}

// The standard library's conversion is several times faster and gives the same digits but where Qt replaces
// the last digits of a large whole number by zeros, and drops the sign of zero.
CellText CellText::Real(double number)
{
    constexpr double exactIntegers = 9007199254740992.0; // 2 to the power of 53
    if (number == 0.0 || !(std::abs(number) < exactIntegers))
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    char digits[32];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    CellText cell;
    cell.Add({digits, end});
    return cell;
}

} // namespace ZYN
