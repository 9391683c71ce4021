#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace ZYN {
class ValidationInterface;
class ValueDisplay;
} // namespace ZYN

/// Texts of values, limits and units as results and statistics show them. A null validation has no limits
/// and no unit; a null display means not scaled, but a status word is still no decimal number.
namespace ZYN::ValidationText {

/// Whether values are shown as hexadecimal or binary digits, which have no scale.
bool HasDigitUnit(const ValidationInterface* validation);
QString Value(const QVariant& value, const ValidationInterface* validation, const ValueDisplay* display);
/// Empty when there is no such limit.
QString LowerLimit(const ValidationInterface* validation, const ValueDisplay* display);
QString UpperLimit(const ValidationInterface* validation, const ValueDisplay* display);
/// The unit with the display's prefix in front.
QString Unit(const ValidationInterface* validation, const ValueDisplay* display);

} // namespace ZYN::ValidationText
