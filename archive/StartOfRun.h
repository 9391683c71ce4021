#pragma once

#include "runs/Run.h"

namespace ZYN {

/// What stands as the start of a run whose start cannot be read, so that it comes last.
constexpr std::int64_t unreadableStart = std::numeric_limits<std::int64_t>::max();

inline std::int64_t StartOf(const Run& run)
{
    return run.start.value_or(unreadableStart);
}

} // namespace ZYN
