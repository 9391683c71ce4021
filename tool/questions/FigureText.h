#pragma once

#include "archive/Questions.h"

#include <QtCore/QString>

#include <optional>

/// \file
/// Numbers of answers as people read them.

namespace ZYN::Tool {

/// "37.5 % (3 of 8)".
QString ShareText(qint64 part, qint64 whole);

/// The title of a column of groups: "Station" for "station".
QString TitleOfGroup(const QString& name);

/// How a measurement's numbers are shown: divided by a power of ten, with a unit that has a prefix. Whole
/// numbers of a hexadecimal or binary unit by their digits; others have no digits there, and are decimal
/// without the unit.
class Scale {
public:
    Scale(const QString& baseUnit, const NumberStyle& style);

    /// With a few significant digits; empty for none.
    QString Number(const std::optional<double>& number) const;
    /// The same and the unit.
    QString WithUnit(const std::optional<double>& number) const;
    /// "4.75 … 5.25 V"; open where a side is missing: "≥ 3 V", "≤ 2 mA"; empty without both.
    QString Range(const std::optional<double>& lower, const std::optional<double>& upper) const;
    /// The same of limits, which may also be "= 1".
    QString Limits(const std::optional<double>& lower, const std::optional<double>& upper) const;

private:
    bool HasDigits(double number) const;

    QString m_unit;
    double m_divisor = 1;
    int m_base = 10;
    QString m_lowerOperator;
};

} // namespace ZYN::Tool
