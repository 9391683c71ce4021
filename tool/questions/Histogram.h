#pragma once

#include "questions/FigureText.h"

#include "archive/Questions.h"

#include <QtCore/QStringList>

namespace ZYN::Tool {

/// Lines of a histogram of block characters: how often numbers lie where, the limits as lines from top to
/// bottom with their numbers below. A limit that is far away leaves room for the numbers and is told with an
/// arrow.
QStringList Histogram(const MeasureRow& row, const Scale& scale, int columns);

} // namespace ZYN::Tool
