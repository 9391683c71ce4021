#include "DecimalText.h"

#include "DecimalReader.h"
#include "ShortText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>

namespace ZYN::DecimalText {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 smallestPlainExponent = -7;
constexpr qint64 largestPlainExponent = 15;

/// A decimal number taken apart: the digits without a point and the power of ten of the first one.
struct Decimal {
    bool negative = false;
    char digits[24];
    int count = 0;
    qint64 exponent = 0;
};

/// Long enough for 24 digits with a sign, a point and an exponent.
using Text = ShortText<64>;

QLatin1StringView Digits(const Decimal& number, qint64 from, qint64 count)
{
    return {number.digits + from, count};
}

void AppendPlain(Text& text, const Decimal& number)
{
    if (number.exponent < 0) {
        text.Add("0."_L1);
        text.AddZeros(-number.exponent - 1);
        text.Add(Digits(number, 0, number.count));
        return;
    }
    const qint64 whole = number.exponent + 1;
    text.Add(Digits(number, 0, std::min<qint64>(number.count, whole)));
    text.AddZeros(whole - number.count);
    if (number.count > whole) {
        text.Add('.');
        text.Add(Digits(number, whole, number.count - whole));
    }
}

void AppendScientific(Text& text, const Decimal& number)
{
    text.Add(number.digits[0]);
    if (number.count > 1) {
        text.Add('.');
        text.Add(Digits(number, 1, number.count - 1));
    }
    text.Add('e');
    text.Add(number.exponent < 0 ? '-' : '+');
    text.AddNumber(std::abs(number.exponent), 2);
}

QString Compose(const Decimal& number)
{
    Text text;
    if (number.negative)
        text.Add('-');
    if (number.exponent >= smallestPlainExponent && number.exponent <= largestPlainExponent)
        AppendPlain(text, number);
    else
        AppendScientific(text, number);
    return text.ToString();
}

/// A whole number of units of 10 to the power of `unit`. Zeros at its end are no digits.
Decimal Take(quint64 magnitude, qint64 unit)
{
    Decimal number;
    const char* end = std::to_chars(number.digits, number.digits + sizeof number.digits, magnitude).ptr;
    number.count = int(end - number.digits);
    number.exponent = magnitude != 0 ? number.count - 1 + unit : 0;
    while (number.count > 1 && number.digits[number.count - 1] == '0')
        --number.count;
    return number;
}

template <typename Real>
Decimal TakeShortest(Real magnitude)
{
    char text[32]; // "d.ddde-308"
    const char* const end =
        std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr;
    const char* const exponent = std::find<const char*>(text, end, 'e');
    Decimal number;
    number.digits[number.count++] = text[0];
    for (const char* digit = text + 2; digit < exponent; ++digit)
        number.digits[number.count++] = *digit;
    std::from_chars(exponent + 2, end, number.exponent);
    if (exponent[1] == '-')
        number.exponent = -number.exponent;
    return number;
}

template <typename Real>
QString FromRealOf(Real value, int shift)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-inf") : QStringLiteral("inf");
    const Real magnitude = std::abs(value);
    std::optional<FewDigits> few;
    if constexpr (std::same_as<Real, double>) // in single precision other digits are the shortest
        few = ToFewDigits(magnitude);
    Decimal number = few ? Take(few->digits, -few->places) : TakeShortest(magnitude);
    number.negative = std::signbit(value);
    if (value != Real(0))
        number.exponent += shift;
    return Compose(number);
}

template <typename Integer>
QString FromIntegerOf(Integer value, int shift)
{
    if (shift == 0 || value == 0)
        return QString::number(value);
    Decimal number = Take(value < 0 ? quint64(0) - quint64(value) : quint64(value), shift);
    number.negative = value < 0;
    return Compose(number);
}

} // namespace

QString FromReal(double value, int shift)
{
    return FromRealOf(value, shift);
}

QString FromSingle(float value, int shift)
{
    return FromRealOf(value, shift);
}

QString FromInteger(qint64 value, int shift)
{
    return FromIntegerOf(value, shift);
}

QString FromInteger(quint64 value, int shift)
{
    return FromIntegerOf(value, shift);
}

double ToReal(QStringView text, int shift, bool* ok)
{
    const QStringView trimmed = text.trimmed();
    const std::u16string_view view(trimmed.utf16(), std::size_t(trimmed.size()));
    const std::optional<double> number = DecimalReader::ToReal(view, shift);
    if (ok)
        *ok = number.has_value();
    return number.value_or(0.0);
}

// The quotient of two exact numbers is the double nearest to that decimal, and no two decimals of up to 15
// digits have the same: what is found is the shortest.
std::optional<FewDigits> ToFewDigits(double number)
{
    constexpr int mostPlaces = 15;
    constexpr double tenTo15 = 1e15;
    double units = 1.0;
    for (int places = 0; places <= mostPlaces && number * units < tenTo15; ++places, units *= 10.0) {
        // Should this round the wrong way, the division tells. A rounding function is a call, and slow.
        const auto digits =
            static_cast<quint64>(number * units + 0.5); // NOLINT(bugprone-incorrect-roundings)
        if (static_cast<double>(digits) / units == number)
            return FewDigits{digits, places};
    }
    return std::nullopt;
}

QString ToDigits(qint64 value, int base)
{
    return QString::number(quint64(value), base);
}

} // namespace ZYN::DecimalText
