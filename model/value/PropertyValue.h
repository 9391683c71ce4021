#pragma once

#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/ValueDisplay.h>

#include <QtCore/QVariant>

#include <optional>

/// Conversions of property values as a test plan brings them: texts or values of any fitting type. The
/// `Read` functions leave their target alone and answer false when the value does not fit; an invalid
/// value means "not set".
namespace ZYN::PropertyValue {

/// A whole number, from an integer, a whole real number or a decimal text.
std::optional<qint64> ToInteger(const QVariant& value);
/// A real number, from a number or a decimal text.
std::optional<double> ToReal(const QVariant& value);
std::optional<ValueDisplay::ScaleFactor> ToScaleFactor(const QVariant& value);
bool ReadOperator(const QVariant& value, LimitOperator& op);
/// From "true", "false", 1 or 0.
bool ReadBool(const QVariant& value, bool& flag);
/// From 0 to the largest 32-bit number; -1 means none.
bool ReadBinId(const QVariant& value, long& id);

} // namespace ZYN::PropertyValue
