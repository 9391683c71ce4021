#include "questions/Histogram.h"

#include "terminal/Blocks.h"

#include <algorithm>
#include <cmath>

namespace ZYN::Tool {

namespace {

constexpr int plotLines = 6;
constexpr QChar LimitLine(0x2502);
constexpr QChar Axis(0x2500);
constexpr QChar LimitFoot(0x2534);

// What the columns of a histogram stand for.
struct Axes {
    double low = 0, high = 1;
    int columns = 1;

    int ColumnOf(double number) const
    {
        return std::clamp(int((number - low) / (high - low) * columns), 0, columns - 1);
    }
};

// Numbers take at least a quarter of the columns: nearer limits are within.
Axes AxesOf(const MeasureRow& row, int columns)
{
    Axes axes{*row.min, *row.max, columns};
    const double span =
        axes.high > axes.low ? axes.high - axes.low : std::max(1e-9, std::abs(axes.low) * 1e-3);
    for (const std::optional<double>& limit : {row.lower, row.upper}) {
        if (limit && *limit < axes.low && *row.min - *limit < 3 * span)
            axes.low = *limit;
        if (limit && *limit > axes.high && *limit - *row.max < 3 * span)
            axes.high = *limit;
    }
    const double margin = axes.high > axes.low ? (axes.high - axes.low) * 0.03 : span;
    axes.low -= margin;
    axes.high += margin;
    return axes;
}

// Texts below the axis, each near its column; one that would cover another is left out.
class Labels {
public:
    explicit Labels(int columns)
        : m_line(columns, QLatin1Char(' '))
    {
    }
    void Put(const QString& text, int column)
    {
        const qsizetype at = std::clamp<qsizetype>(column - text.size() / 2, 0,
                                                   qMax<qsizetype>(0, m_line.size() - text.size()));
        const QString here = m_line.mid(qMax<qsizetype>(0, at - 1), text.size() + 2);
        if (text.size() <= m_line.size() && here.trimmed().isEmpty())
            m_line.replace(at, text.size(), text);
    }
    const QString& GetLine() const { return m_line; }

private:
    QString m_line;
};

} // namespace

QStringList Histogram(const MeasureRow& row, const Scale& scale, int columns)
{
    const Axes axes = AxesOf(row, columns);
    std::vector<double> counts(std::size_t(columns), 0.0);
    for (const MeasuredValue& value : row.values)
        ++counts[std::size_t(axes.ColumnOf(value.value))];
    std::vector<QString> lines = Skyline(counts, plotLines);
    QString axis(columns, Axis);
    Labels labels(columns);
    const std::pair<const std::optional<double>&, bool> limits[] = {{row.lower, true}, {row.upper, false}};
    for (const auto& [limit, isLower] : limits) {
        if (!limit)
            continue;
        if (*limit < axes.low || *limit > axes.high) {
            const bool isLeft = *limit < axes.low;
            labels.Put(isLeft ? QStringLiteral("← ") + scale.WithUnit(limit)
                              : scale.WithUnit(limit) + QStringLiteral(" →"),
                       isLeft ? 0 : columns - 1);
            continue;
        }
        const int column = axes.ColumnOf(*limit);
        for (QString& line : lines)
            if (line.at(column) == QLatin1Char(' '))
                line[column] = LimitLine;
        axis[column] = LimitFoot;
        labels.Put(scale.WithUnit(limit), column);
    }
    labels.Put(scale.WithUnit(row.mean), axes.ColumnOf(*row.mean));
    QStringList texts;
    for (const QString& line : lines)
        texts.append(line);
    return texts << axis << labels.GetLine();
}

} // namespace ZYN::Tool
