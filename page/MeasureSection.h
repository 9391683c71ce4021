#pragma once

#include "page/MeasurePlots.h"

#include <QtCore/QString>

#include <cstddef>
#include <vector>

namespace ZYN::Page {

class UnitTables;
struct LotAnswers;
struct Part;

/// What a page says about the measurements of a lot.
class MeasureSection {
public:
    /// \param units whose rows failed dots lead to
    MeasureSection(const LotAnswers& answers, const Part& part, const UnitTables& units);

    /// What drifts, with its pictures; empty where nothing does.
    QString LookAtThis() const;
    /// All measurements as a table, lowest CPK first, and the heading of what follows.
    QString Table() const;
    /// The pictures of one measurement, to open.
    QString Details(std::size_t row) const;

private:
    QString Plots(std::size_t row) const;
    QString Links(std::size_t row, const std::vector<FailedDot>& dots) const;
    QString Anchor(std::size_t row) const;

    const LotAnswers& m_answers;
    const Part& m_part;
    const UnitTables& m_units;
};

} // namespace ZYN::Page
