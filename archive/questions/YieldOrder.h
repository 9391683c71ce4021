#pragma once

#include "archive/Questions.h"

namespace ZYN {

/// Parts of time as they came, other groups with the worst on top: by the lower bound of Wilson's interval of
/// the rate of units that did not pass, then by name. Groups of several names by the first, within it by the
/// next.
void SortYield(std::vector<YieldRow>* rows);

} // namespace ZYN
