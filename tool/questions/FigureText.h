#pragma once

#include <QtCore/QString>

#include <optional>

/// \file
/// Numbers of answers as people read them.

namespace ZYN::Tool {

/// "37.5 % (3 of 8)".
QString ShareText(qint64 part, qint64 whole);

/// The title of a column of groups: "Station" for "station".
QString TitleOfGroup(const QString& name);

/// How a measurement's numbers are shown: divided by a power of ten, with a unit that has a prefix.
struct Scale {
    /// \param factor power of ten of a prefix; one without a prefix counts as none
    Scale(const QString& baseUnit, int factor);

    /// With a few significant digits; empty for none.
    QString Number(const std::optional<double>& number) const;
    /// The same and the unit.
    QString WithUnit(const std::optional<double>& number) const;
    /// "4.75 … 5.25 V", "≥ 3 V", "≤ 2 mA"; empty without limits.
    QString Limits(const std::optional<double>& lower, const std::optional<double>& upper) const;

    QString unit;
    double divisor = 1;
};

} // namespace ZYN::Tool
