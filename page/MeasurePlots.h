#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

class QPainter;

namespace ZYN::Page {

/// What the plots of one measurement show. Values are in the base unit, in order of time; they are borrowed.
struct MeasureData {
    QString unit;
    bool isDecimal = true; ///< false for a hexadecimal or binary unit
    std::optional<double> lower, upper, mean;
    std::span<const double> values;
    std::span<const std::int16_t> codes; ///< of their verdicts
    bool IsGood(std::size_t value) const { return codes[value] >= 0; }
    /// Something began at this value: a number for it, and what it is called.
    struct Mark {
        std::size_t index = 0;
        QString text; ///< empty: one of many, marked at the edge only
    };
    std::vector<Mark> marks;
};

/// A failed value of a trend and where it stands in the picture.
struct FailedDot {
    std::size_t index = 0;
    QPointF at;
};

/// How often which value was measured, with limits and the normal distribution that fits without outliers. A
/// few values far from all others are not shown but counted at the edge.
void DrawHistogram(QPainter& painter, const QRectF& area, const MeasureData& data);
/// The values in order of time with limits and mean. Where more values than pixels stand side by side, each
/// column of pixels shows the range of its values, and failed ones one by one. Values beyond the axis are
/// arrows at its edge.
std::vector<FailedDot> DrawTrend(QPainter& painter, const QRectF& area, const MeasureData& data);

} // namespace ZYN::Page
