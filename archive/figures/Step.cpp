#include "archive/figures/Step.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ZYN::Figures {

Step StepOf(const Ranks& ranks)
{
    const std::int64_t n = std::int64_t(ranks.doubled.size());
    std::int64_t sum = 0;
    std::int64_t most = 0;
    Step step;
    for (std::int64_t k = 1; k < n; ++k) {
        sum += ranks.doubled[std::size_t(k - 1)] - (n + 1);
        if (std::abs(sum) > most) {
            most = std::abs(sum);
            step.behind = std::size_t(k);
        }
    }
    if (n > 1) {
        const double k = double(most);
        const double cube = double(n) * double(n) * double(n);
        step.p.log = std::min(0.0, std::numbers::ln2 - 6 * k * k / (cube + double(n) * double(n)));
    }
    return step;
}

} // namespace ZYN::Figures
