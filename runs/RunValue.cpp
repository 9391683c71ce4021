#include "RunValue.h"

#include "NumberText.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace ZYN {

namespace {

/// Whole numbers up to this have each a double of their own.
constexpr std::uint64_t largestExact = std::uint64_t(1) << 53;

} // namespace

void RunValue::SetNone()
{
    number = std::numeric_limits<double>::quiet_NaN();
    text.clear();
}

void RunValue::SetReal(double real)
{
    SetNone();
    if (std::isfinite(real))
        number = real;
    else
        text = std::isnan(real) ? "nan" : real < 0 ? "-inf" : "inf";
}

void RunValue::SetInteger(std::int64_t integer)
{
    const std::uint64_t magnitude = integer < 0 ? 0 - std::uint64_t(integer) : std::uint64_t(integer);
    if (magnitude <= largestExact)
        SetReal(double(integer));
    else
        SetWhole(std::to_string(integer));
}

void RunValue::SetWhole(std::string digits)
{
    const char* const first = digits.data() + digits.starts_with('-');
    std::uint64_t magnitude = 0;
    std::from_chars(first, digits.data() + digits.size(), magnitude);
    SetNone();
    if (magnitude <= largestExact)
        number = first == digits.data() ? double(magnitude) : -double(magnitude);
    else
        text = std::move(digits);
}

double RunValue::Nearest() const
{
    return text.empty() ? number : NumberText::ToReal(text, 0).value_or(number);
}

} // namespace ZYN
