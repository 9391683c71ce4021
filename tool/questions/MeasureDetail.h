#pragma once

#include "archive/Questions.h"

namespace ZYN::Tool {

/// Prints one measurement with all its figures, its histogram between its limits, and how it went over time.
/// Its values must have been asked for. \param withValues whether they are listed
void PrintMeasureDetail(const MeasureRow& row, bool withValues);

} // namespace ZYN::Tool
