#pragma once

#include <string_view>

namespace ZYN::ReportUnits {

enum : int {
    Hexadecimal = 25,
    Binary = 26,
};

/// The base of the digits in which values of a unit are written; 0 for decimal numbers.
constexpr int DigitBase(int unitCode)
{
    return unitCode == Hexadecimal ? 16 : unitCode == Binary ? 2 : 0;
}

/// A unit as a report shows it, without the prefix of a power of ten.
std::string_view WithoutPrefix(std::string_view unit, int factor);

} // namespace ZYN::ReportUnits
