#pragma once

#include "archive/questions/ChosenRuns.h"
#include "archive/questions/MeasuredSeries.h"
#include "archive/questions/Programs.h"

#include <array>

namespace ZYN {

/// Reads the arrays of the chosen runs and sorts their items to the series that they belong to.
///
/// Runs come in the order that the database likes best, and are put into the order of time at the end.
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
    /// What runs are put in order by: start, number in the report, number of the test.
    using Time = std::array<std::int64_t, 3>;

    bool ReadItems();
    bool ReadRuns();
    bool ReadRun(const QSqlQuery& row);
    void AddPlace(const QByteArray& serial, const QByteArray& lot, const QByteArray& start);
    void AddValues(std::uint32_t run, const MeasuredItems::Positions& series, const QByteArray& values,
                   const QByteArray& codes, const std::vector<std::pair<int, double>>& texts);
    bool IsBefore(std::uint32_t a, std::uint32_t b) const;
    void PutInOrder();

    const Archive& m_archive;
    const ChosenRuns m_runs;
    Programs m_programs;
    MeasuredItems m_items;
    std::vector<Time> m_times; // of each run, until they are in order
    std::vector<std::int64_t> m_ids;
    std::vector<MeasuredRun> m_places;
    QByteArray m_lot; // of the last run
    QString m_lotText;
    std::vector<MeasuredSeries> m_series; // by the number of the item, while arrays are read
};

} // namespace ZYN
