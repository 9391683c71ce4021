#pragma once

#include "archive/figures/Moments.h"

#include <optional>

namespace ZYN::Figures {

/// What good numbers lie between; a side without a bound is open.
struct Bounds {
    std::optional<double> lower, upper;
    bool inverted = false; ///< good is what lies outside
};

/// Process capability index: the distance of the mean from the nearer bound, in three sigma. Of the side that
/// exists; none without bounds, for inverted ones, and where nothing varies.
std::optional<double> Cpk(const Moments& numbers, const Bounds& bounds);

} // namespace ZYN::Figures
