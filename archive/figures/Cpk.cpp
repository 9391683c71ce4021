#include "archive/figures/Cpk.h"

#include <algorithm>

namespace ZYN::Figures {

std::optional<double> Cpk(const Moments& numbers, const Bounds& bounds)
{
    const std::optional<double> sigma = numbers.GetSigma();
    if (!sigma || !(*sigma > 0) || bounds.inverted || (!bounds.lower && !bounds.upper))
        return std::nullopt;
    const double mean = *numbers.GetMean();
    double distance = std::numeric_limits<double>::infinity();
    if (bounds.upper)
        distance = std::min(distance, *bounds.upper - mean);
    if (bounds.lower)
        distance = std::min(distance, mean - *bounds.lower);
    return distance / (3 * *sigma);
}

} // namespace ZYN::Figures
