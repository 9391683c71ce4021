#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace ZYN::Figures {

/// Where a rule of Nelson marks numbers.
struct NelsonHit {
    int rule = 0;
    std::size_t since = 0; ///< the first of the numbers that it marks
    bool operator==(const NelsonHit&) const = default;
};

/// Rules 1 to 3 of Nelson ("The Shewhart control chart - tests for special causes", Journal of Quality
/// Technology 16, 1984) on an individuals chart whose sigma is that of the moving range: a point beyond three
/// sigma; nine in a row on one side of the mean; six in a row that only rise or only fall. A row that is
/// longer is one hit. \return by rule, then by place
std::vector<NelsonHit> NelsonHits(std::span<const double> numbers);

} // namespace ZYN::Figures
