#include <ZYNCommon/ValueDisplay.h>

#include <ZYNCommon/MeasurementUnit.h>

#include "NumericVariant.h"

#include "text/DecimalText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace ZYN {

namespace {

using NumericVariant::Kind;

/// The bits of a number in two's complement; nothing for what is not whole or has more than 64.
std::optional<qint64> BitsOf(const QVariant& value)
{
    constexpr double twoTo63 = 9223372036854775808.0;
    switch (NumericVariant::KindOf(value)) {
    case Kind::Signed:
        return value.toLongLong();
    case Kind::Unsigned:
        return qint64(value.toULongLong());
    case Kind::Single:
    case Kind::Real: {
        const double real = value.toDouble();
        if (std::trunc(real) != real || real < -twoTo63 || real >= 2 * twoTo63)
            return std::nullopt;
        return real < twoTo63 ? qint64(real) : qint64(quint64(real));
    }
    case Kind::Other:
        break;
    }
    return std::nullopt;
}

QString DecimalOf(const QVariant& value, int shift)
{
    switch (NumericVariant::KindOf(value)) {
    case Kind::Signed:
        return DecimalText::FromInteger(qint64(value.toLongLong()), shift);
    case Kind::Unsigned:
        return DecimalText::FromInteger(quint64(value.toULongLong()), shift);
    case Kind::Single:
        return DecimalText::FromSingle(value.toFloat(), shift);
    case Kind::Real:
        return DecimalText::FromReal(value.toDouble(), shift);
    case Kind::Other:
        break;
    }
    return value.toString();
}

} // namespace

ValueDisplay::ValueDisplay(ScaleFactor factor, int unitCode)
    : m_factor(factor)
    , m_unitCode(unitCode)
{
}

QString ValueDisplay::ToString(const QVariant& value) const
{
    if (value.isNull())
        return QString();
    if (const int base = MeasurementUnit::DigitBase(m_unitCode)) {
        const std::optional<qint64> bits = BitsOf(value);
        return bits ? DecimalText::ToDigits(*bits, base) : DecimalOf(value, 0);
    }
    return DecimalOf(value, -std::max<int>(m_factor, -std::numeric_limits<int>::max()));
}

QString ValueDisplay::StaticToString(const QVariant& value)
{
    return ValueDisplay().ToString(value);
}

QString ValueDisplay::GetScaleString() const
{
    return ScaleFactorToString(m_factor);
}

bool ValueDisplay::HasPrefix(ScaleFactor factor)
{
    return factor >= ScalePico && factor <= ScaleTera && factor % 3 == 0;
}

QString ValueDisplay::ScaleFactorToString(ScaleFactor factor)
{
    switch (factor) {
    case ScalePico:
        return QStringLiteral("p");
    case ScaleNano:
        return QStringLiteral("n");
    case ScaleMicro:
        return QStringLiteral("u");
    case ScaleMilli:
        return QStringLiteral("m");
    case ScaleNone:
        return QString();
    case ScaleKilo:
        return QStringLiteral("k");
    case ScaleMega:
        return QStringLiteral("M");
    case ScaleGiga:
        return QStringLiteral("G");
    case ScaleTera:
        return QStringLiteral("T");
    }
    return QStringLiteral("#");
}

} // namespace ZYN
