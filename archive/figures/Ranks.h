#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ZYN::Figures {

/// The order of numbers by size, with what equal ones do to it.
struct Ranks {
    /// By place: twice the rank, from 2; equal numbers share the middle of their ranks.
    std::vector<std::int64_t> doubled;
    std::vector<std::uint32_t> dense; ///< by place: how many different numbers are smaller
    double tiedPairs = 0;             ///< pairs of equal numbers
    double tieTerm = 0;               ///< sum of t (t - 1) (2 t + 5) over groups of t equal numbers
};

/// In O(n log n). The numbers are finite.
Ranks RanksOf(std::span<const double> numbers);

} // namespace ZYN::Figures
