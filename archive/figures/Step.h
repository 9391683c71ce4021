#pragma once

#include "archive/figures/Probability.h"
#include "archive/figures/Ranks.h"

namespace ZYN::Figures {

/// Where numbers jump to another level.
struct Step {
    std::size_t behind = 0; ///< the first number on the new level
    Probability p;
};

/// The test of Pettitt ("A non-parametric approach to the change-point problem", Applied Statistics 28,
/// 1979), with its approximation of p. In O(n): sums of ranks.
Step StepOf(const Ranks& ranks);

} // namespace ZYN::Figures
