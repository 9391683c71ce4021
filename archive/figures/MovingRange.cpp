#include "archive/figures/MovingRange.h"

#include <cmath>

namespace ZYN::Figures {

double MovingRangeSigma(std::span<const double> numbers)
{
    if (numbers.size() < 2)
        return 0;
    double sum = 0;
    for (std::size_t i = 1; i < numbers.size(); ++i)
        sum += std::abs(numbers[i] - numbers[i - 1]);
    return sum / double(numbers.size() - 1) / 1.128;
}

} // namespace ZYN::Figures
