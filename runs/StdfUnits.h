#pragma once

#include <string>
#include <string_view>

namespace ZYN {

/// The unit of numbers in a lot file.
struct StdfUnit {
    std::string text; ///< without prefix, UTF-8
    int power = 0;    ///< of ten, that the file's number is to be multiplied with: -3 for "mV"
    int factor = 0;   ///< of the prefix that people see the number with
    int code = 0;     ///< of units that say how numbers are written; else 0
};

/// Takes the prefix off a unit that is one of the known ones with a prefix. Any other one stays as it is, as
/// do those that may mean either of two: "MV" and "MA" of a tester that writes capitals, "mhz". \param scale
/// RES_SCAL: how many places the decimal point is moved for people. Where it is that of the prefix,
///        the tester wrote the unit as people see it, and the number is without prefix. "%" with 2 is a
///        fraction that people see as percent.
StdfUnit ReadStdfUnit(std::string_view text, int scale);

/// Latin-1 as UTF-8, without blanks at both ends: testers fill fields up.
std::string StdfText(std::string_view latin1);

} // namespace ZYN
