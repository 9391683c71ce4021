#pragma once

#include "archive/figures/MeasuredFigures.h"
#include "archive/questions/MeasuredItems.h"

namespace ZYN {

/// What a measurement is, and its figures.
MeasureRow FilledRow(const MeasuredItem& item, const Figures::MeasuredFigures& figures);

} // namespace ZYN
