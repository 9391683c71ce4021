#pragma once

#include <cstdint>

namespace ZYN::Figures {

/// Lower bound of the 95 % interval of a rate of which `hits` of `trials` were seen (Wilson, "Probable
/// inference, the law of succession, and statistical inference", JASA 22, 1927). Ranks groups of different
/// size: 1 of 2 is not worse than 80 of 200. \return 0 where there were no trials
double WilsonLowerBound(std::int64_t hits, std::int64_t trials);

} // namespace ZYN::Figures
