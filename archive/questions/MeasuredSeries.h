#pragma once

#include "archive/questions/MeasuredItems.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ZYN {

/// All that was measured of one component under one set of limits, by the order of runs.
struct MeasuredSeries {
    MeasuredItem item;

    std::vector<std::uint32_t> runs; ///< place of the run in the order of runs
    std::vector<double> values;      ///< finite
    std::vector<std::int16_t> codes;
    bool isMet = false;          ///< a run has a result of it
    std::int64_t failed = 0;     ///< with a negative code, with a value or not
    std::int64_t notNumbers = 0; ///< not-a-number and infinities

    void Add(std::uint32_t run, double value, int code)
    {
        runs.push_back(run);
        values.push_back(value);
        codes.push_back(std::int16_t(code));
    }
    /// Brings what was added into the order of runs. \param ranks the new place of each run
    void Sort(const std::vector<std::uint32_t>& ranks);
};

} // namespace ZYN
