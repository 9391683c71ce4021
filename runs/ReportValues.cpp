#include "ReportValues.h"

#include "NumberText.h"
#include "ReportUnits.h"

#include <algorithm>
#include <cmath>

namespace ZYN::ReportValues {

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

bool ReadNumber(std::string_view text, const Notation& notation, bool isWhole, RunValue* value)
{
    // From here on not every whole number has a double of its own; up to there a conversion is defined.
    constexpr double firstInexact = std::uint64_t(1) << 53;
    constexpr double end = 2.0 * double(std::uint64_t(1) << 62);
    value->SetNone();
    if (text.empty())
        return true;
    const int base = ReportUnits::DigitBase(notation.unitCode);
    if (const auto bits = base ? NumberText::ToBits(text, base) : std::nullopt) {
        value->SetInteger(std::int64_t(*bits));
        return true;
    }
    // What is not whole has no digits of a base and is written as a plain decimal.
    const int factor = base ? 0 : notation.factor;
    const std::optional<double> real = NumberText::ToReal(text, factor);
    if (!real)
        return false;
    value->SetReal(*real);
    if (!isWhole || !(std::abs(*real) >= firstInexact))
        return true;
    if (auto digits = base ? std::nullopt : NumberText::ToWholeDigits(text, factor))
        value->SetWhole(std::move(*digits));
    else if (*real >= -end && *real < end)
        value->SetInteger(std::int64_t(*real));
    return true;
}

bool ReadValue(std::string_view text, const Notation& notation, int measuredType, RunValue* value)
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
