#include "archive/figures/Probability.h"

#include <cmath>
#include <numbers>

namespace ZYN::Figures {

double Probability::Get() const
{
    return std::exp(log);
}

Probability BeyondNormal(double z)
{
    const double x = std::abs(z) / std::numbers::sqrt2;
    if (x < 25)
        return {std::log(std::erfc(x))};
    // erfc is 0 soon: the leading term of its asymptotic series.
    return {-x * x - std::log(x) - 0.5 * std::log(std::numbers::pi)};
}

} // namespace ZYN::Figures
