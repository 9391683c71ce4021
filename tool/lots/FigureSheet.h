#pragma once

#include <QtCore/QString>

#include <optional>

namespace ZYN {
class StatisticsDataReport;
}

namespace ZYN::Tool {

/// Writes the figures of a lot as a workbook, a row for each component: counts, mean, sigma, CPK, extremes
/// and limits, all digits of them. What is not counted in numbers has empty cells. \param scaled with the
/// prefixes of units \return why it could not be written
std::optional<QString> WriteFigureSheet(const StatisticsDataReport& report, bool scaled, const QString& path);

} // namespace ZYN::Tool
