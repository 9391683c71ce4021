#include "archive/figures/Wilson.h"

#include <cmath>

namespace ZYN::Figures {

double WilsonLowerBound(std::int64_t hits, std::int64_t trials)
{
    if (trials <= 0 || hits <= 0)
        return 0;
    constexpr double z = 1.959963984540054; // 97.5 % of the normal distribution lie below
    const double n = double(trials);
    const double rate = double(hits) / n;
    const double centre = rate + z * z / (2 * n);
    const double margin = z * std::sqrt(rate * (1 - rate) / n + z * z / (4 * n * n));
    return (centre - margin) / (1 + z * z / n);
}

} // namespace ZYN::Figures
