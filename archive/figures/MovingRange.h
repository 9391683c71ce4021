#pragma once

#include <cstddef>
#include <span>

namespace ZYN::Figures {

/// Sigma of an individuals chart: the mean distance of neighbours divided by 1.128 (d2 for two, e.g. ISO
/// 7870-2). It tells how much numbers scatter from one to the next, and a slow drift or a single step hardly
/// raises it. \return 0 for fewer than two numbers
double MovingRangeSigma(std::span<const double> numbers);

} // namespace ZYN::Figures
