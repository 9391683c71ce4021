#pragma once

#include "archive/questions/ChosenRuns.h"
#include "archive/questions/MeasuredSeries.h"
#include "archive/questions/Programs.h"

#include <unordered_map>

namespace ZYN {

/// Reads the arrays of the chosen runs and sorts their items to the series that they belong to.
///
/// Arrays come in the order that the database likes best; the order of runs is asked before.
class SeriesReader {
public:
    /// \param names of the measurements that are wanted; empty: all
    SeriesReader(const Archive& archive, const RunFilter& filter, const QStringList& names = {});

    /// \return false where they cannot be read; the archive then says why
    bool Read();

    /// The series, in the order of runs; in the order that they first appear.
    std::vector<MeasuredSeries>& GetSeries() { return m_series; }
    /// Where a run stands in time.
    const RunPlace& PlaceOf(std::uint32_t run) const { return m_places[run].place; }
    std::vector<MeasuredRun>& GetRuns() { return m_places; }
    const Programs& GetPrograms() const { return m_programs; }

private:
    bool ReadOrder();
    bool ReadArrays();
    bool ReadRun(const QSqlQuery& row);

    const Archive& m_archive;
    const ChosenRuns m_runs;
    Programs m_programs;
    MeasuredItems m_items;
    std::unordered_map<qint64, std::uint32_t> m_order; // by id
    std::vector<MeasuredRun> m_places;
    std::vector<MeasuredSeries> m_series; // by the number of the item, while arrays are read
};

} // namespace ZYN
