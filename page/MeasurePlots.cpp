#include "page/MeasurePlots.h"

#include "page/PlotFrame.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ZYN::Page {

namespace {

constexpr double dotRadius = 1.6;

struct Range {
    double from = 0;
    double to = 0;
};

// What an axis of the values must hold: the values and the limits, but no limit that is so far away that the
// values would be a line.
Range RangeOf(const MeasureData& data)
{
    const auto [least, most] = std::minmax_element(data.values.begin(), data.values.end());
    Range range{*least, *most};
    const double spread = std::max(range.to - range.from, data.sigma.value_or(0) * 6);
    const auto take = [&](const std::optional<double>& limit) {
        if (!limit || !std::isfinite(*limit))
            return;
        const double distance = std::max(range.from - *limit, *limit - range.to);
        if (distance > spread * 4 && spread > 0)
            return;
        range.from = std::min(range.from, *limit);
        range.to = std::max(range.to, *limit);
    };
    const Range ofValues = range;
    take(data.lower);
    range = {std::min(range.from, ofValues.from), std::max(range.to, ofValues.to)};
    take(data.upper);
    const double room = (range.to - range.from) * 0.02;
    return {range.from - room, range.to + room};
}

std::vector<int> CountBins(const MeasureData& data, const Range& range, int bins)
{
    std::vector<int> counts(static_cast<std::size_t>(bins));
    for (const double value : data.values) {
        const double place = (value - range.from) / (range.to - range.from) * bins;
        ++counts[static_cast<std::size_t>(std::clamp(int(place), 0, bins - 1))];
    }
    return counts;
}

// Square root rule over the values' own range, so that a narrow distribution between wide limits has its
// bins.
int BinsFor(const MeasureData& data, const Range& axis)
{
    const auto [least, most] = std::minmax_element(data.values.begin(), data.values.end());
    const double share = (*most - *least) / (axis.to - axis.from);
    const double wanted = std::clamp(std::sqrt(double(data.values.size())), 6.0, 30.0);
    return std::clamp(int(share > 0 ? wanted / share : wanted), 6, 90);
}

void DrawBars(QPainter& painter, const PlotFrame& frame, const std::vector<int>& counts, const Range& range)
{
    QPainterPath bars;
    const double width = (range.to - range.from) / double(counts.size());
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] == 0)
            continue;
        const QPointF corner(frame.X(range.from + double(i) * width), frame.Y(counts[i]));
        bars.addRect(QRectF(corner, QPointF(frame.X(range.from + double(i + 1) * width), frame.Y(0)))
                         .adjusted(0.4, 0, -0.4, 0));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(Ink::Area));
    painter.drawPath(bars);
    painter.setBrush(Qt::NoBrush);
}

void DrawNormal(QPainter& painter, const PlotFrame& frame, const MeasureData& data, const Range& range,
                double area)
{
    if (!data.mean || !data.sigma || !(*data.sigma > 0))
        return;
    QPainterPath curve;
    const double height = area / (*data.sigma * std::sqrt(2 * std::numbers::pi));
    const double from = std::max(range.from, *data.mean - 4 * *data.sigma);
    const double to = std::min(range.to, *data.mean + 4 * *data.sigma);
    constexpr int steps = 48;
    for (int i = 0; i <= steps && to > from; ++i) {
        const double value = from + (to - from) * i / steps;
        const double z = (value - *data.mean) / *data.sigma;
        const QPointF point(frame.X(value),
                            std::max(frame.Y(height * std::exp(-z * z / 2)), frame.GetInner().top()));
        i == 0 ? curve.moveTo(point) : curve.lineTo(point);
    }
    painter.setPen(PlotPen(Ink::Fit, 1.25));
    painter.drawPath(curve);
}

// A line too short to be seen, whose round ends are the dot.
void AddDot(QPainterPath& path, double x, double y)
{
    path.moveTo(x, y);
    path.lineTo(x + 0.01, y);
}

QPen DotPen(Ink ink)
{
    QPen pen = PlotPen(ink, 2 * dotRadius);
    pen.setCapStyle(Qt::RoundCap);
    return pen;
}

double Tenths(double pixels)
{
    return std::round(pixels * 10) / 10;
}

void DrawDots(QPainter& painter, const PlotFrame& frame, const MeasureData& data)
{
    QPainterPath good;
    QPainterPath bad;
    for (std::size_t i = 0; i < data.values.size(); ++i)
        AddDot(data.good[i] ? good : bad, Tenths(frame.X(double(i))), Tenths(frame.Y(data.values[i])));
    painter.setPen(DotPen(Ink::Good));
    painter.drawPath(good);
    painter.setPen(DotPen(Ink::Bad));
    painter.drawPath(bad);
}

// One upright line a column of pixels, from the least to the largest value that stands there.
void DrawColumns(QPainter& painter, const PlotFrame& frame, const MeasureData& data)
{
    struct Column {
        double least = INFINITY;
        double most = -INFINITY;
    };
    std::vector<Column> columns(static_cast<std::size_t>(frame.GetInner().width()) + 1);
    std::vector<Column> failures(columns.size());
    for (std::size_t i = 0; i < data.values.size(); ++i) {
        const auto at = static_cast<std::size_t>(frame.X(double(i)) - frame.GetInner().left());
        Column& column = (data.good[i] ? columns : failures)[std::min(at, columns.size() - 1)];
        column.least = std::min(column.least, data.values[i]);
        column.most = std::max(column.most, data.values[i]);
    }
    QPainterPath path;
    QPainterPath bad;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double x = Tenths(frame.GetInner().left() + double(i));
        if (columns[i].least <= columns[i].most) {
            path.moveTo(x, Tenths(frame.Y(columns[i].least) + 0.5));
            path.lineTo(x, Tenths(frame.Y(columns[i].most) - 0.5));
        }
        if (failures[i].least <= failures[i].most) {
            AddDot(bad, x, Tenths(frame.Y(failures[i].least)));
            if (failures[i].most > failures[i].least)
                AddDot(bad, x, Tenths(frame.Y(failures[i].most)));
        }
    }
    painter.setPen(PlotPen(Ink::Good));
    painter.drawPath(path);
    painter.setPen(DotPen(Ink::Bad));
    painter.drawPath(bad);
}

void DrawMarks(QPainter& painter, PlotFrame& frame, const MeasureData& data)
{
    constexpr double tickHeight = 7;
    const double top = frame.GetInner().top();
    double taken = -INFINITY;
    for (const MeasureData::Mark& mark : data.marks) {
        const double x = frame.X(double(mark.index));
        const double half = LabelWidth(mark.text) / 2 + 3;
        if (!mark.text.isEmpty() && x - half > taken) {
            frame.DrawUpright(double(mark.index), Ink::Mark, Qt::DashLine, mark.text);
            taken = std::max(x, frame.GetInner().left() + half) + half;
        } else {
            painter.setPen(PlotPen(Ink::Mark, 1.5));
            painter.drawLine(QPointF(x, top), QPointF(x, top + tickHeight));
        }
    }
}

} // namespace

void DrawHistogram(QPainter& painter, const QRectF& area, const MeasureData& data)
{
    if (data.values.empty())
        return;
    const Range wanted = RangeOf(data);
    const Axis across(wanted.from, wanted.to, 6);
    const Range range{across.GetFrom(), across.GetTo()};
    const std::vector<int> counts = CountBins(data, range, BinsFor(data, range));
    const int most = *std::max_element(counts.begin(), counts.end());
    PlotFrame frame(painter, area, {across, data.unit}, {Axis(0, std::max(most, 4), 4), {}});
    frame.DrawUp();
    DrawBars(painter, frame, counts, range);
    DrawNormal(painter, frame, data, range,
               double(data.values.size()) * (range.to - range.from) / double(counts.size()));
    if (data.lower)
        frame.DrawUpright(*data.lower, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "LL"));
    if (data.upper)
        frame.DrawUpright(*data.upper, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "UL"));
    frame.DrawAcross();
}

void DrawTrend(QPainter& painter, const QRectF& area, const MeasureData& data)
{
    if (data.values.empty())
        return;
    const Range wanted = RangeOf(data);
    const double last = double(std::max<std::size_t>(data.values.size(), 2) - 1);
    PlotFrame frame(painter, area, {Axis(0, last, 8), {}}, {Axis(wanted.from, wanted.to, 5), data.unit});
    frame.DrawUp();
    if (double(data.values.size()) > frame.GetInner().width() * 1.5)
        DrawColumns(painter, frame, data);
    else
        DrawDots(painter, frame, data);
    if (data.mean)
        frame.DrawLevel(*data.mean, Ink::Mean, Qt::SolidLine, {});
    if (data.lower)
        frame.DrawLevel(*data.lower, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "LL"));
    if (data.upper)
        frame.DrawLevel(*data.upper, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "UL"));
    DrawMarks(painter, frame, data);
    frame.DrawAcross();
}

} // namespace ZYN::Page
