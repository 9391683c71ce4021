#include "CellText.h"

#include "text/DecimalText.h"

#include <QtCore/QLocale>

#include <charconv>
#include <cmath>

namespace ZYN {

using namespace Qt::StringLiterals;

CellText CellText::Integer(qint64 number, QLatin1StringView before, QLatin1StringView after)
{
    CellText cell;
    cell.m_number.Add(before);
    cell.m_number.AddNumber(number);
    cell.m_number.Add(after);
    return cell;
}

/// A number of few digits with a fraction; no scientific notation of it would be shorter.
void CellText::AddFixed(quint64 digits, int places)
{
    char buffer[24];
    const auto count = static_cast<int>(std::to_chars(buffer, buffer + sizeof buffer, digits).ptr - buffer);
    const int whole = std::max(count - places, 0);
    m_number.Add({buffer, whole});
    m_number.Add(whole > 0 ? "."_L1 : "0."_L1);
    m_number.AddZeros(places - (count - whole));
    m_number.Add({buffer + whole, count - whole});
}

// Measured values have few digits. For other numbers the standard library's conversion gives the same digits
// as Qt's but where that replaces the last digits of a large whole number by zeros, and drops the sign of
// zero.
CellText CellText::Real(double number)
{
    CellText cell;
    constexpr double smallestFixed = 0.001;
    const double magnitude = std::abs(number);
    if (const auto few = DecimalText::ToFewDigits(magnitude);
        few && few->places > 0 && magnitude >= smallestFixed) {
        if (number < 0)
            cell.m_number.Add('-');
        cell.AddFixed(few->digits, few->places);
        return cell;
    }
    constexpr double exactIntegers = 9007199254740992.0; // 2 to the power of 53
    if (number == 0.0 || !(magnitude < exactIntegers))
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    char digits[32];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    cell.m_number.Add({digits, end});
    return cell;
}

} // namespace ZYN
