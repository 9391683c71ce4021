#pragma once

#include <QtCore/QString>

#include <vector>

namespace ZYN::Page {

/// A value on an axis and what is written beside it.
struct Tick {
    double value = 0;
    QString label;
};

/// An axis with round numbers: steps of 1, 2 or 5 times a power of ten.
class Axis {
public:
    /// \param from, to what must be on the axis; equal ones are given some room
    /// \param count about so many steps
    Axis(double from, double to, int count);

    /// An axis from one value to another, round or not, for places that have names instead of numbers.
    static Axis Exact(double from, double to);

    /// Counts from 0 to a number that need not be round; those between are.
    static Axis UpTo(double to, int count);

    double GetFrom() const { return m_from; }
    double GetTo() const { return m_to; }
    /// \param unit of the values; a prefix is put before it and taken from the numbers where that makes them
    /// short
    std::vector<Tick> Ticks(const QString& unit) const;
    /// The unit with the prefix that the labels of `Ticks` have: "mV".
    QString UnitText(const QString& unit) const;
    /// From 0 at the beginning to 1 at the end.
    double Place(double value) const { return (value - m_from) / (m_to - m_from); }

private:
    int Exponent(const QString& unit) const;

    double m_from;
    double m_to;
    double m_step;
};

/// A number with a few digits, as people write it: "12.5", "-3", "1.2e-09".
QString ShortNumber(double value, int digits = 4);
/// The same with a prefix before its unit: "12.5 mV"; units that take none ("%", "#") are left as they are.
QString WithUnit(double value, const QString& unit, int digits = 4);

} // namespace ZYN::Page
