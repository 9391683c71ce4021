#include "page/GroupPlots.h"

#include "page/Html.h"
#include "page/PlotFrame.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace ZYN::Page {

namespace {

constexpr double spaceOfTimeLabels = 26;

// Yields are near one: the axis begins where there is something to see, in steps of ten percent.
double LeastShown(const std::vector<YieldPoint>& points)
{
    double least = 1;
    for (const YieldPoint& point : points) {
        least = std::min(least, point.yield);
        if (!std::isnan(point.firstPass))
            least = std::min(least, point.firstPass);
    }
    return std::max(0.0, std::floor(least * 10 - 0.5) / 10);
}

void DrawLine(QPainter& painter, const PlotFrame& frame, const std::vector<YieldPoint>& points, Ink ink,
              Qt::PenStyle style, double YieldPoint::*value)
{
    QPainterPath line;
    QPainterPath dots;
    bool isOpen = false;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double share = points[i].*value;
        if (std::isnan(share)) {
            isOpen = false;
            continue;
        }
        const QPointF at(frame.X(double(i) + 0.5), frame.Y(share * 100));
        isOpen ? line.lineTo(at) : line.moveTo(at);
        dots.moveTo(at);
        dots.lineTo(at.x() + 0.01, at.y());
        isOpen = true;
    }
    painter.setPen(PlotPen(ink, 1.5, style));
    painter.drawPath(line);
    QPen pen = PlotPen(ink, 4.5);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawPath(dots);
}

void DrawUnitBars(QPainter& painter, const PlotFrame& frame, const std::vector<YieldPoint>& points)
{
    double most = 1;
    for (const YieldPoint& point : points)
        most = std::max(most, point.units);
    QPainterPath bars;
    const double height = frame.GetInner().height() * 0.3;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double left = frame.X(double(i) + 0.15);
        const double top = frame.GetInner().bottom() - height * points[i].units / most;
        bars.addRect(
            QRectF(QPointF(left, top), QPointF(frame.X(double(i) + 0.85), frame.GetInner().bottom())));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(Ink::Grid));
    painter.drawPath(bars);
    painter.setBrush(Qt::NoBrush);
}

void DrawTimes(QPainter& painter, const PlotFrame& frame, const std::vector<YieldPoint>& points)
{
    const QRectF& inner = frame.GetInner();
    painter.setPen(PlotPen(Ink::Faint));
    painter.drawLine(inner.bottomLeft(), inner.bottomRight());
    double taken = -INFINITY;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double half = LabelWidth(points[i].label) / 2;
        const double x =
            std::clamp(frame.X(double(i) + 0.5), inner.left() + half - 20, inner.right() - half + 12);
        if (x - half < taken)
            continue;
        DrawLabel(painter, {x, inner.bottom() + 4}, Qt::AlignHCenter | Qt::AlignTop, Ink::Faint,
                  points[i].label);
        taken = x + half + 10;
    }
}

} // namespace

void DrawYieldOverTime(QPainter& painter, const QRectF& area, const std::vector<YieldPoint>& points)
{
    if (points.empty())
        return;
    PlotFrame frame(painter, area.adjusted(0, 0, 0, 20 - spaceOfTimeLabels),
                    {Axis::Exact(0, double(points.size())), {}},
                    {Axis(LeastShown(points) * 100, 100, 5), QStringLiteral("%")});
    DrawUnitBars(painter, frame, points);
    frame.DrawUp();
    DrawLine(painter, frame, points, Ink::Mean, Qt::DashLine, &YieldPoint::firstPass);
    DrawLine(painter, frame, points, Ink::Good, Qt::SolidLine, &YieldPoint::yield);
    DrawTimes(painter, frame, points);
}

void DrawBars(QPainter& painter, const QRectF& area, const std::vector<Bar>& bars)
{
    painter.setFont(PlotFont());
    const QFontMetricsF metrics(PlotFont());
    double names = 0;
    double texts = 0;
    for (const Bar& bar : bars) {
        names = std::max(names, metrics.horizontalAdvance(Harmless(bar.label)));
        texts = std::max(texts, metrics.horizontalAdvance(bar.text));
    }
    names = std::min(names, area.width() * 0.5);
    const double left = area.left() + names + 8;
    const double room = area.right() - left - texts - 8;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const double top = area.top() + double(i) * barHeight;
        const double middle = top + barHeight / 2;
        DrawLabel(painter, {left - 8, middle}, Qt::AlignRight, Ink::Text,
                  metrics.elidedText(Harmless(bars[i].label), Qt::ElideMiddle, names));
        const double width = std::max(1.0, bars[i].share * room);
        painter.fillRect(QRectF(left, top + 4, width, barHeight - 8),
                         ColourOf(bars[i].bad ? Ink::Bad : Ink::Good));
        DrawLabel(painter, {left + width + 6, middle}, Qt::AlignLeft, Ink::Text, bars[i].text);
    }
}

void DrawWafer(QPainter& painter, const QRectF& area, const WaferDies& wafer)
{
    if (wafer.dies.empty())
        return;
    const auto [left, right] = std::minmax_element(wafer.dies.begin(), wafer.dies.end(),
                                                   [](const auto& a, const auto& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(wafer.dies.begin(), wafer.dies.end(),
                                                   [](const auto& a, const auto& b) { return a.y < b.y; });
    const double width = area.width() / (double(right->x) - left->x + 1);
    const double height = area.height() / (double(bottom->y) - top->y + 1);
    QPainterPath good;
    QPainterPath bad;
    for (const WaferDies::Die& die : wafer.dies)
        (die.passed ? good : bad)
            .addRect(QRectF(area.left() + (double(die.x) - left->x) * width,
                            area.top() + (double(die.y) - top->y) * height, width * 0.9, height * 0.9));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(Ink::Area));
    painter.drawPath(good);
    painter.setBrush(ColourOf(Ink::Bad));
    painter.drawPath(bad);
    painter.setBrush(Qt::NoBrush);
}

} // namespace ZYN::Page
