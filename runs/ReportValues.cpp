#include "ReportValues.h"

#include "NumberText.h"
#include "ReportUnits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace ZYN::ReportValues {

namespace {

/// Whole numbers up to this have each a double of their own.
constexpr std::uint64_t largestExact = std::uint64_t(1) << 53;

} // namespace

Kind KindOf(int dataType)
{
    constexpr int integer = 7;
    constexpr int real = 8;
    constexpr int text = 9;
    switch (dataType) {
    case integer:
        return Kind::Integer;
    case real:
        return Kind::Real;
    case text:
        return Kind::Text;
    default:
        return Kind::None;
    }
}

void Value::SetNone()
{
    number = std::numeric_limits<double>::quiet_NaN();
    text.clear();
}

void Value::SetReal(double real)
{
    SetNone();
    if (std::isfinite(real))
        number = real;
    else
        text = std::isnan(real) ? "nan" : real < 0 ? "-inf" : "inf";
}

void Value::SetInteger(std::int64_t integer)
{
    const std::uint64_t magnitude = integer < 0 ? 0 - std::uint64_t(integer) : std::uint64_t(integer);
    if (magnitude <= largestExact)
        SetReal(double(integer));
    else
        SetWhole(std::to_string(integer));
}

void Value::SetWhole(std::string digits)
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

bool ReadNumber(std::string_view text, const Notation& notation, bool isWhole, Value* value)
{
    value->SetNone();
    if (text.empty())
        return true;
    int factor = notation.factor;
    if (const int base = ReportUnits::DigitBase(notation.unitCode)) {
        if (const std::optional<std::uint64_t> bits = NumberText::ToBits(text, base)) {
            value->SetInteger(std::int64_t(*bits));
            return true;
        }
        // What is not whole has no digits and is written as a plain decimal.
        factor = 0;
        isWhole = false;
    }
    const std::optional<double> real = NumberText::ToReal(text, factor);
    if (!real)
        return false;
    if (isWhole && std::abs(*real) >= double(largestExact)) {
        if (std::optional<std::string> digits = NumberText::ToWholeDigits(text, factor)) {
            value->SetWhole(std::move(*digits));
            return true;
        }
    }
    value->SetReal(*real);
    return true;
}

bool ReadValue(std::string_view text, const Notation& notation, int measuredType, Value* value)
{
    const Kind measured = KindOf(measuredType);
    const bool isText = measured == Kind::Text || KindOf(notation.dataType) == Kind::Text;
    if (!isText || ReportUnits::DigitBase(notation.unitCode))
        return ReadNumber(text, notation, measured == Kind::Integer, value);
    value->SetNone();
    value->text = text;
    return true;
}

bool ReadOperator(std::string_view text, std::string_view* limitOperator)
{
    *limitOperator = NumberText::Trimmed(text);
    static constexpr std::string_view known[] = {"", "==", "!=", "<", "<=", ">", ">="};
    return std::find(std::begin(known), std::end(known), *limitOperator) != std::end(known);
}

} // namespace ZYN::ReportValues
