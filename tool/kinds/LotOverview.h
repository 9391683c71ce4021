#pragma once

#include <QtCore/QString>

namespace ZYN::Tool {

/// Prints what a yield engineer looks for first in an STDF file: yield by site and by wafer, hard and soft
/// bins with names and shares, mean and sigma of each test. \param withMap also the wafers, a character for
/// each die: its hard bin
void PrintLotOverview(const QString& path, bool withMap);

} // namespace ZYN::Tool
