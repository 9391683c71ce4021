#include "CellText.h"

#include "export/ModelAdapter.h"

#include <QtCore/QLocale>

#include <charconv>
#include <cmath>

namespace ZYN {

using namespace Qt::StringLiterals;

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

/// A number of few digits with a fraction; no scientific notation of it would be shorter.
void CellText::AddFixed(quint64 digits, int places)
{
    char buffer[24];
    const auto count = static_cast<int>(std::to_chars(buffer, buffer + sizeof buffer, digits).ptr - buffer);
    const int whole = std::max(count - places, 0);
    Add({buffer, whole});
    Add(whole > 0 ? "."_L1 : "0."_L1);
    Add("00"_L1.first(places - (count - whole)));
    Add({buffer + whole, count - whole});
}

// Measured values have few digits. For other numbers the standard library's conversion gives the same digits
// as Qt's but where that replaces the last digits of a large whole number by zeros, and drops the sign of
// zero.
CellText CellText::Real(double number)
{
    CellText cell;
    constexpr double smallestFixed = 0.001;
    const double magnitude = std::abs(number);
    if (const auto few = ModelAdapter::FewDigits(magnitude);
        few && few->places > 0 && magnitude >= smallestFixed) {
        if (number < 0)
            cell.Add("-"_L1);
        cell.AddFixed(few->digits, few->places);
        return cell;
    }
    constexpr double exactIntegers = 9007199254740992.0; // 2 to the power of 53
    if (number == 0.0 || !(magnitude < exactIntegers))
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    char digits[32];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    cell.Add({digits, end});
    return cell;
}

} // namespace ZYN
