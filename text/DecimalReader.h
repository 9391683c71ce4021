#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

/// Decimal texts as numbers, of bytes or of 16-bit characters, independent of the locale.
namespace ZYN::DecimalReader {

/// Beyond this an exponent in a text says nothing more; sums of a few of them stay far inside 64 bits.
constexpr std::int64_t exponentBound = 1'000'000'000'000;

template <class Char>
constexpr bool IsDigit(Char c)
{
    return c >= '0' && c <= '9';
}

/// A decimal text taken apart.
template <class Char>
struct Decimal {
    bool negative = false;
    std::basic_string_view<Char> mantissa; ///< digits and point, without the sign
    std::uint64_t digits = 0;              ///< all digits as one number, if there are at most 19
    int count = 0;                         ///< digits from the first that is not 0
    int places = 0;                        ///< digits behind the point
    std::int64_t exponent = 0;
};

/// \return nothing for a text that is no decimal number
template <class Char>
std::optional<Decimal<Char>> Take(std::basic_string_view<Char> text)
{
    Decimal<Char> number;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        number.negative = text[at++] == '-';
    const std::size_t first = at;
    bool anyDigit = false;
    bool point = false;
    for (; at < text.size(); ++at) {
        const Char c = text[at];
        if (IsDigit(c)) {
            anyDigit = true;
            number.places += point;
            if (number.count > 0 || c != '0') {
                ++number.count;
                number.digits = number.digits * 10 + std::uint64_t(c - '0'); // of 20 and more never used
            }
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!anyDigit)
        return std::nullopt;
    number.mantissa = text.substr(first, at - first);
    if (at == text.size())
        return number;
    if (text[at] != 'e' && text[at] != 'E')
        return std::nullopt;
    ++at;
    bool negativeExponent = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        negativeExponent = text[at++] == '-';
    if (at == text.size())
        return std::nullopt;
    for (; at < text.size(); ++at) {
        if (!IsDigit(text[at]))
            return std::nullopt;
        number.exponent = std::min(number.exponent * 10 + (text[at] - '0'), exponentBound);
    }
    if (negativeExponent)
        number.exponent = -number.exponent;
    return number;
}

/// The general conversion, of a text with the exponent that counts.
template <class Char>
std::optional<double> ConvertText(const Decimal<Char>& number, std::int64_t exponent)
{
    std::string text;
    for (const Char c : number.mantissa)
        text += static_cast<char>(c); // digits and a point
    text += 'e' + std::to_string(exponent);
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc())
        return value;
    // Out of range at the small end is a number that rounds to zero; at the large end it is none.
    const std::int64_t leading = number.count - 1 - number.places + exponent;
    return number.count == 0 || leading < 0 ? std::optional(0.0) : std::nullopt;
}

template <class Char>
std::optional<double> Convert(const Decimal<Char>& number, int shift)
{
    // Powers of ten up to 22 are exact, and so are whole numbers up to 2^53: one operation rounds once.
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::int64_t largestPower = std::size(powers) - 1;
    constexpr std::uint64_t twoTo53 = std::uint64_t(1) << 53;
    const std::int64_t exponent = number.exponent + shift;
    const std::int64_t power = exponent - number.places;
    if (number.count <= 19 && number.digits <= twoTo53 && power >= -largestPower && power <= largestPower) {
        const auto digits = static_cast<double>(number.digits);
        return power < 0 ? digits / powers[-power] : digits * powers[power];
    }
    return ConvertText(number, exponent);
}

template <class Char>
bool IsName(std::basic_string_view<Char> text, std::string_view lower)
{
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](Char c, char expected) { return (c | 0x20) == expected; });
}

/// The number that a decimal text without blanks around it gives when its point is moved by `shift` places
/// before the conversion, correctly rounded. "nan", "inf" and "-inf" are numbers, "1e999" is none.
template <class Char>
std::optional<double> ToReal(std::basic_string_view<Char> text, int shift)
{
    if (const auto number = Take(text)) {
        const std::optional<double> value = Convert(*number, shift);
        return value && number->negative ? std::optional(-*value) : value;
    }
    const bool negative = text.starts_with(Char('-'));
    if (negative || text.starts_with(Char('+')))
        text.remove_prefix(1);
    if (IsName(text, "nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (IsName(text, "inf"))
        return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    return std::nullopt;
}

} // namespace ZYN::DecimalReader
