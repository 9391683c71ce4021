#include "ValidationText.h"

#include <ZYNCommon/ValidationInterface.h>

#include <array>

namespace ZYN::ValidationText {

namespace {

constexpr int firstFactor = ValueDisplay::ScalePico;
constexpr int factors = ValueDisplay::ScaleTera - firstFactor + 1;
constexpr int units = MeasurementUnit::Binary + 1;

QString MakePrefixed(int factor, const MeasurementUnit& unit)
{
    return ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(factor)) + unit.ToString();
}

/// The unit with its prefix in front. The usual ones are made once: a report asks for them in every row.
QString Prefixed(int factor, const MeasurementUnit& unit)
{
    static const auto texts = [] {
        std::array<QString, size_t(factors * units)> all;
        for (int index = 0; index < factors * units; ++index)
            all[size_t(index)] = MakePrefixed(firstFactor + index / units, MeasurementUnit(index % units));
        return all;
    }();
    const int row = factor - firstFactor;
    const bool usual = row >= 0 && row < factors && unit.GetCode() >= 0 && unit.GetCode() < units;
    return usual ? texts[size_t(row) * units + size_t(unit.GetCode())] : MakePrefixed(factor, unit);
}

} // namespace

bool HasDigitUnit(const ValidationInterface* validation)
{
    const int unit = validation ? validation->GetMeasurementUnit().GetCode() : MeasurementUnit::None;
    return unit == MeasurementUnit::Hexadecimal || unit == MeasurementUnit::Binary;
}

QString Value(const QVariant& value, const ValidationInterface* validation, const ValueDisplay* display)
{
    if (display)
        return display->ToString(value);
    const int unit = validation ? validation->GetMeasurementUnit().GetCode() : MeasurementUnit::None;
    return ValueDisplay(ValueDisplay::ScaleNone, unit).ToString(value);
}

QString LowerLimit(const ValidationInterface* validation, const ValueDisplay* display)
{
    if (!validation || !validation->HasLowerLimit())
        return QString();
    return Value(validation->GetLowerLimit(), validation, display);
}

QString UpperLimit(const ValidationInterface* validation, const ValueDisplay* display)
{
    if (!validation || !validation->HasUpperLimit())
        return QString();
    return Value(validation->GetUpperLimit(), validation, display);
}

QString Unit(const ValidationInterface* validation, const ValueDisplay* display)
{
    if (!validation)
        return QString();
    const MeasurementUnit unit = validation->GetMeasurementUnit();
    return display && !HasDigitUnit(validation) ? Prefixed(display->GetScaleFactor(), unit) : unit.ToString();
}

} // namespace ZYN::ValidationText
