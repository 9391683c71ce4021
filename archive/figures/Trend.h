#pragma once

#include "archive/figures/Probability.h"
#include "archive/figures/Ranks.h"

namespace ZYN::Figures {

/// Whether numbers rise or fall over time.
struct Trend {
    double score = 0; ///< pairs that rise less pairs that fall
    Probability p;    ///< two-sided; 1 where nothing varies
};

/// The test of Mann ("Nonparametric tests against trend", Econometrica 13, 1945) and Kendall, with ties,
/// corrected for continuity. In O(n log n): pairs that fall are counted while their ranks are merged.
Trend TrendOf(const Ranks& ranks);

} // namespace ZYN::Figures
