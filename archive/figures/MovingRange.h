#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace ZYN::Figures {

/// Sigma of an individuals chart: the mean distance of neighbours divided by 1.128 (d2 for two, e.g. ISO
/// 7870-2). It tells how much numbers scatter from one to the next, and a slow drift or a single step hardly
/// raises it. \return 0 for fewer than two numbers
double MovingRangeSigma(std::span<const double> numbers);

/// The same from the median distance of neighbours, divided by 0.954 (the median of the distance of two
/// normal numbers: 0.6745 times the root of 2), so that a few broken units far away do not raise it. Where
/// most neighbours are equal it is that of the mean distance.
double RobustSigma(std::span<const double> numbers);

/// The middle one; of an even count the mean of the two in the middle. \pre there is a number
double MedianOf(std::vector<double> numbers);

} // namespace ZYN::Figures
