#pragma once

#include "runs/Run.h"

#include <vector>

namespace ZYN {

/// A component of a run that failed.
struct FailedComponent {
    std::uint32_t position = 0;
    bool isFirst = false;
};

/// All failing measurements of a run in walk order, and what failed first: in the first failing step the
/// first failing measurement, or the step itself where none of its measurements failed; where no step failed,
/// the deepest failed component, of several the first.
std::vector<FailedComponent> FailedComponents(const Run& run);

} // namespace ZYN
