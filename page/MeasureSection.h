#pragma once

#include <QtCore/QString>

#include <cstddef>

namespace ZYN::Page {

class UnitTables;
struct LotAnswers;

/// What a page says about the measurements of a lot.
class MeasureSection {
public:
    /// \param number of the lot on the page \param units whose rows failed dots lead to
    MeasureSection(const LotAnswers& answers, int number, const UnitTables& units);

    /// What drifts, with its pictures; empty where nothing does.
    QString LookAtThis() const;
    /// All measurements as a table, lowest CPK first, and the heading of what follows.
    QString Table() const;
    /// The pictures of one measurement, to open.
    QString Details(std::size_t row) const;

private:
    QString Plots(std::size_t row) const;
    QString Anchor(std::size_t row) const;

    const LotAnswers& m_answers;
    int m_number;
    const UnitTables& m_units;
};

} // namespace ZYN::Page
