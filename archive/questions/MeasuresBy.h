#pragma once

#include "archive/Questions.h"

namespace ZYN {

/// `AskMeasures` with groups: a row for each of them, by path, limits and group.
std::optional<std::vector<MeasureRow>> AskMeasuresBy(const Archive& archive, const RunFilter& filter,
                                                     const MeasureOptions& options);

} // namespace ZYN
