#include "NumberText.h"

#include "text/DecimalReader.h"

#include <charconv>

namespace ZYN::NumberText {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
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
    return DecimalReader::ToReal(Trimmed(text), shift);
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
    const std::optional<DecimalReader::Decimal<char>> number = DecimalReader::Take(text);
    if (!number || number->mantissa.data() + number->mantissa.size() != text.data() + text.size() ||
        !DecimalReader::IsDigit(text.back()))
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
