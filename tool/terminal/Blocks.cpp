#include "terminal/Blocks.h"

#include <algorithm>
#include <cmath>

namespace ZYN::Tool {

namespace {

constexpr ushort fullBlock = 0x2588;
constexpr ushort lowestBlock = 0x2581; // an eighth of the height; those behind it are higher

} // namespace

QString Bar(double share, int columns)
{
    if (!(share > 0))
        return {};
    const int eighths = std::clamp(int(std::lround(share * columns * 8)), 1, columns * 8);
    QString bar(eighths / 8, QChar(fullBlock));
    if (eighths % 8 > 0)
        bar += QChar(ushort(fullBlock + 8 - eighths % 8)); // 7/8 to 1/8 follow the full one
    return bar;
}

std::vector<QString> Skyline(const std::vector<double>& heights, int lines)
{
    const double highest = heights.empty() ? 0 : *std::max_element(heights.begin(), heights.end());
    std::vector<QString> skyline(std::size_t(lines), QString(qsizetype(heights.size()), QLatin1Char(' ')));
    for (std::size_t i = 0; i < heights.size() && highest > 0; ++i) {
        if (!(heights[i] > 0))
            continue;
        const int eighths = std::max(1, int(std::lround(heights[i] / highest * lines * 8)));
        for (int line = 0; line < lines; ++line) {
            const int here = std::clamp(eighths - 8 * line, 0, 8);
            if (here > 0)
                skyline[std::size_t(lines - 1 - line)][qsizetype(i)] = QChar(ushort(lowestBlock + here - 1));
        }
    }
    return skyline;
}

QString Sparkline(const std::vector<double>& numbers)
{
    double lowest = INFINITY, highest = -INFINITY;
    for (const double number : numbers) {
        if (!std::isnan(number)) {
            lowest = std::min(lowest, number);
            highest = std::max(highest, number);
        }
    }
    QString line;
    for (const double number : numbers) {
        const double share = highest > lowest ? (number - lowest) / (highest - lowest) : 0.5;
        line += std::isnan(number) ? QChar(' ') : QChar(ushort(lowestBlock + std::lround(share * 7)));
    }
    return line;
}

} // namespace ZYN::Tool
