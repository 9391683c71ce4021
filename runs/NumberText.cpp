#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace ZYN::NumberText {

namespace {

/// Beyond this an exponent in a text says nothing more; sums of a few of them stay far inside 64 bits.
constexpr std::int64_t exponentBound = 1'000'000'000'000;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A decimal text taken apart.
struct Decimal {
    bool negative = false;
    std::string_view mantissa; ///< digits and point, without the sign
    std::uint64_t digits = 0;  ///< all digits as one number, if there are at most 19
    int count = 0;             ///< digits from the first that is not 0
    int places = 0;            ///< digits behind the point
    int leadingPlaces = 0;     ///< zeros behind the point before the first other digit
    std::int64_t exponent = 0;
};

std::optional<Decimal> Take(std::string_view text)
{
    Decimal number;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        number.negative = text[at++] == '-';
    const std::size_t first = at;
    bool anyDigit = false;
    bool point = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (IsDigit(c)) {
            anyDigit = true;
            number.places += point;
            if (number.count > 0 || c != '0') {
                ++number.count;
                number.digits = number.digits * 10 + std::uint64_t(c - '0'); // of 20 and more never used
            } else {
                number.leadingPlaces += point;
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
std::optional<double> ConvertText(const Decimal& number, std::int64_t exponent)
{
    std::string text(number.mantissa);
    text += 'e';
    text += std::to_string(exponent);
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc())
        return value;
    // Out of range at the small end is a number that rounds to zero; at the large end it is none.
    const std::int64_t leading = number.count - 1 - number.places + exponent;
    return number.count == 0 || leading < 0 ? std::optional(0.0) : std::nullopt;
}

std::optional<double> Convert(const Decimal& number, int shift)
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

bool IsName(std::string_view text, std::string_view lower)
{
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](char c, char expected) { return (c | 0x20) == expected; });
}

} // namespace

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::optional<int> ToInteger(std::string_view text)
{
    text = Trimmed(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::optional<double> ToReal(std::string_view text, int shift)
{
    text = Trimmed(text);
    if (const std::optional<Decimal> number = Take(text)) {
        const std::optional<double> value = Convert(*number, shift);
        return value && number->negative ? std::optional(-*value) : value;
    }
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (IsName(text, "nan"))
        return nan;
    if (IsName(text, "inf"))
        return negative ? -infinity : infinity;
    return std::nullopt;
}

std::optional<std::uint64_t> ToBits(std::string_view text, int base)
{
    text = Trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const char mark = base == 16 ? 'x' : 'b';
    if (text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == mark)
        text.remove_prefix(2);
    std::uint64_t bits = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), bits, base);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return bits;
}

std::optional<std::string> ToWholeDigits(std::string_view text, int shift)
{
    text = Trimmed(text);
    const std::optional<Decimal> number = Take(text);
    if (!number || number->mantissa.data() + number->mantissa.size() != text.data() + text.size() ||
        !IsDigit(text.back()))
        return std::nullopt;
    std::string digits;
    for (const char c : number->mantissa)
        if (c != '.' && (c != '0' || !digits.empty()))
            digits += c;
    std::int64_t power = shift - number->places;
    for (; power < 0 && digits.ends_with('0'); ++power)
        digits.pop_back();
    constexpr std::int64_t longest = 20; // digits of the largest number of 64 bits
    if (digits.empty())
        return "0";
    if (power < 0 || power > longest)
        return std::nullopt;
    digits.append(std::size_t(power), '0');
    std::uint64_t magnitude = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
    constexpr std::uint64_t mostNegative = std::uint64_t(1) << 63;
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() ||
        (number->negative && magnitude > mostNegative))
        return std::nullopt;
    return number->negative ? '-' + digits : digits;
}

} // namespace ZYN::NumberText
