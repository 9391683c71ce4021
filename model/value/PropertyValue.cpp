#include "PropertyValue.h"

#include "NumericVariant.h"

#include "text/DecimalText.h"

#include <cmath>
#include <limits>

namespace ZYN::PropertyValue {

std::optional<qint64> ToInteger(const QVariant& value)
{
    if (const auto number = NumericVariant::ExactOf(value)) {
        constexpr NumericVariant::Exact twoTo63 = 9223372036854775808.0L;
        const bool fits = *number >= -twoTo63 && *number < twoTo63 && std::trunc(*number) == *number;
        return fits ? std::optional(qint64(*number)) : std::nullopt;
    }
    bool ok = false;
    const qint64 number = value.toString().trimmed().toLongLong(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<double> ToReal(const QVariant& value)
{
    if (const auto number = NumericVariant::ExactOf(value))
        return double(*number);
    bool ok = false;
    const double number = DecimalText::ToReal(value.toString(), 0, &ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<ValueDisplay::ScaleFactor> ToScaleFactor(const QVariant& value)
{
    if (value.isNull())
        return ValueDisplay::ScaleNone;
    const std::optional<qint64> factor = ToInteger(value);
    if (!factor || *factor != int(*factor))
        return std::nullopt;
    return ValueDisplay::ScaleFactor(*factor);
}

bool ReadOperator(const QVariant& value, LimitOperator& op)
{
    const QString text = value.toString();
    const LimitOperator read = LimitOperator::FromString(text);
    if (read.GetCode() == LimitOperator::None && !text.trimmed().isEmpty())
        return false;
    op = read;
    return true;
}

bool ReadBool(const QVariant& value, bool& flag)
{
    const QString text = value.toString().trimmed();
    const bool isTrue = text == QLatin1StringView("true") || text == QLatin1StringView("1");
    if (!isTrue && text != QLatin1StringView("false") && text != QLatin1StringView("0") && !value.isNull())
        return false;
    flag = isTrue;
    return true;
}

bool ReadBinId(const QVariant& value, long& id)
{
    const std::optional<qint64> read = value.isNull() ? std::optional<qint64>(-1) : ToInteger(value);
    if (!read || *read < -1 || *read > std::numeric_limits<qint32>::max())
        return false;
    id = long(*read);
    return true;
}

} // namespace ZYN::PropertyValue
