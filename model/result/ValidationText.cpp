#include "ValidationText.h"

#include <ZYNCommon/ValidationInterface.h>

namespace ZYN::ValidationText {

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
    const QString unit = validation->GetMeasurementUnit().ToString();
    return display && !HasDigitUnit(validation) ? display->GetScaleString() + unit : unit;
}

} // namespace ZYN::ValidationText
