#include "archive/figures/MovingRange.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

double RobustSigma(std::span<const double> numbers)
{
    if (numbers.size() < 2)
        return 0;
    std::vector<double> distances;
    distances.reserve(numbers.size() - 1);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        distances.push_back(std::abs(numbers[i] - numbers[i - 1]));
    const double median = MedianOf(std::move(distances));
    return median > 0 ? median / 0.954 : MovingRangeSigma(numbers);
}

double MedianOf(std::vector<double> numbers)
{
    const auto middle = numbers.begin() + std::ptrdiff_t(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    if (numbers.size() % 2 == 1)
        return *middle;
    const double below = *std::max_element(numbers.begin(), middle);
    return below + (*middle - below) / 2;
}

} // namespace ZYN::Figures
