#pragma once

#include "archive/questions/ChosenRuns.h"
#include "archive/questions/MeasuredSeries.h"
#include "archive/questions/Programs.h"

#include <map>
#include <tuple>
#include <unordered_map>

namespace ZYN {

/// Reads the arrays of the chosen runs and sorts their items to the series that they belong to.
///
/// Arrays come in the order that the database likes best; the order of runs is asked before.
class SeriesReader {
public:
    SeriesReader(const Archive& archive, const RunFilter& filter);

    /// \return false where they cannot be read; the archive then says why
    bool Read();

    /// The series, in the order of runs; in the order that they first appear.
    std::vector<MeasuredSeries>& GetSeries() { return m_series; }
    /// Where a run stands in time.
    const RunPlace& PlaceOf(std::uint32_t run) const { return m_places[run]; }
    const Programs& GetPrograms() const { return m_programs; }

private:
    struct Component {
        int id = 0;
        bool isNumber = false;
        QString ident, path, unit;
        NumberStyle style;
    };
    /// By position: the index of a series, or -1 for what is no measurement of numbers.
    using SeriesOfLayout = std::vector<int>;
    using SeriesKey = std::tuple<int, QString, std::optional<double>, std::optional<double>, std::string,
                                 std::string, bool>;

    bool ReadLayouts();
    bool ReadOrder();
    bool ReadArrays();
    bool ReadRun(const QSqlQuery& row);
    const SeriesOfLayout* Find(int layout, qint64 limits);
    int SeriesOf(const Component& component, const QString& program, const Judgement& judgement);

    const Archive& m_archive;
    const ChosenRuns m_runs;
    Programs m_programs;
    LimitSets m_limits;
    std::unordered_map<int, std::vector<Component>> m_layouts;
    std::unordered_map<qint64, std::uint32_t> m_order; // by id
    std::vector<RunPlace> m_places;
    std::map<SeriesKey, int> m_known;
    std::map<std::pair<int, qint64>, SeriesOfLayout> m_found;
    std::vector<MeasuredSeries> m_series;
};

} // namespace ZYN
