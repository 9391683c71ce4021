#pragma once

#include <QtCore/QString>

#include <vector>

namespace ZYN::Tool {

/// Drawings of block characters.

/// A bar from the left, to an eighth of a column. \param share of the whole length, 0 to 1; what is more than
/// nothing is at least an eighth
QString Bar(double share, int columns);

/// Heights side by side, one column each, scaled from 0 to the highest; from the bottom line to the top one,
/// as they are printed: the top one first.
std::vector<QString> Skyline(const std::vector<double>& heights, int lines);

/// How numbers went, in one line: the lowest is the lowest block, the highest the highest; a blank for NaN.
QString Sparkline(const std::vector<double>& numbers);

} // namespace ZYN::Tool
