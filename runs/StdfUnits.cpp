#include "StdfUnits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ZYN {

namespace {

using namespace std::string_view_literals;

/// Units that testers write with prefixes; "m" and "g" more often are something else.
constexpr std::array units{"V"sv,   "A"sv,   "W"sv,    "Hz"sv,   "s"sv,   "F"sv,      "H"sv,     "S"sv,
                           "Ohm"sv, "ohm"sv, "Ohms"sv, "ohms"sv, "OHM"sv, "v"sv,      "a"sv,     "hz"sv,
                           "HZ"sv,  "Pa"sv,  "sec"sv,  "Sec"sv,  "dB"sv,  "\u03A9"sv, "\u2126"sv};
/// The ones that are given in millions.
constexpr std::array megaUnits{"Hz"sv,   "hz"sv,   "HZ"sv,     "Ohm"sv,   "ohm"sv,
                               "Ohms"sv, "ohms"sv, "\u03A9"sv, "\u2126"sv};

struct Prefix {
    std::string_view text;
    int power;
};
constexpr std::array prefixes{Prefix{"f", -15},     Prefix{"p", -12},     Prefix{"n", -9}, Prefix{"u", -6},
                              Prefix{"\u00B5", -6}, Prefix{"\u03BC", -6}, Prefix{"m", -3}, Prefix{"k", 3},
                              Prefix{"K", 3},       Prefix{"M", 6},       Prefix{"G", 9},  Prefix{"T", 12}};

template <class List>
bool Holds(const List& list, std::string_view text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool Fits(const Prefix& prefix, std::string_view unit)
{
    if (prefix.text == "M")
        return Holds(megaUnits, unit);
    return Holds(units, unit) && !(prefix.text == "m" && unit == "hz");
}

} // namespace

std::string StdfText(std::string_view latin1)
{
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    const std::size_t first = latin1.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    latin1 = latin1.substr(first, latin1.find_last_not_of(blanks) - first + 1);
    std::string text;
    text.reserve(latin1.size());
    for (const char c : latin1) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xc0 | code >> 6);
            text += static_cast<char>(0x80 | (code & 0x3f));
        }
    }
    return text;
}

StdfUnit ReadStdfUnit(std::string_view text, int scale)
{
    StdfUnit unit{StdfText(text), 0, -scale, 0};
    if (unit.text == "%" && scale == 2)
        return {unit.text, 2, 0, 0};
    const std::string_view whole = unit.text;
    for (const Prefix& prefix : prefixes) {
        if (!whole.starts_with(prefix.text) || !Fits(prefix, whole.substr(prefix.text.size())))
            continue;
        std::string rest(whole.substr(prefix.text.size()));
        const bool isOfScale = scale != 0 && prefix.power == -scale;
        return {std::move(rest), isOfScale ? 0 : prefix.power, prefix.power, 0};
    }
    return unit;
}

} // namespace ZYN
