#pragma once

#include "archive/Questions.h"

#include <vector>

namespace ZYN::Tool {

/// Prints measurements as a table, one a line.
void PrintMeasureList(const std::vector<MeasureRow>& rows);

/// "step +1.3 σ"; empty without a drift.
QString DriftText(const std::optional<Drift>& drift);

} // namespace ZYN::Tool
