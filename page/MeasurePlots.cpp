#include "page/MeasurePlots.h"

#include "page/PlotFrame.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace ZYN::Page {

namespace {

constexpr double dotRadius = 1.6;
constexpr double farFromAll = 8;      // distances of the quartiles: such values are not on the axis
constexpr double outlying = 3;        // such are not what a normal distribution fits to
constexpr double leastToFit = 5;      // values: a curve of fewer says nothing
constexpr std::size_t manyDots = 200; // whole pixels do for them, and are half as long

struct Range {
    double from = 0;
    double to = 0;
    bool Holds(double value) const { return value >= from && value <= to; }
};

// Where the values are, without the few far away: a shorted board would make a line of all others.
// \param far how many distances of the quartiles beyond these
Range RangeOfValues(std::span<const double> values, double far)
{
    std::vector<double> arranged(values.begin(), values.end());
    const auto quantile = [&](double share) {
        const auto place = arranged.begin() + std::lround(share * double(arranged.size() - 1));
        std::nth_element(arranged.begin(), place, arranged.end());
        return *place;
    };
    const double low = quantile(0.25);
    const double high = quantile(0.75);
    const double fence = high > low ? far * (high - low) : INFINITY;
    Range range{INFINITY, -INFINITY};
    for (const double value : values) {
        if (value < low - fence || value > high + fence)
            continue;
        range.from = std::min(range.from, value);
        range.to = std::max(range.to, value);
    }
    return range;
}

// What an axis of the values must hold: these and the limits, but no limit that is so far away that the
// values would be a line.
Range RangeOf(const MeasureData& data)
{
    const Range ofValues = RangeOfValues(data.values, farFromAll);
    Range range = ofValues;
    const double spread = ofValues.to - ofValues.from;
    for (const std::optional<double>& limit : {data.lower, data.upper}) {
        if (!limit || !std::isfinite(*limit))
            continue;
        const double distance = std::max(ofValues.from - *limit, *limit - ofValues.to);
        if (distance > spread * 4 && spread > 0)
            continue;
        range.from = std::min(range.from, *limit);
        range.to = std::max(range.to, *limit);
    }
    const double room = (range.to - range.from) * 0.02;
    return {range.from - room, range.to + room};
}

std::vector<double> ShownOf(const MeasureData& data, const Range& range)
{
    std::vector<double> shown;
    std::copy_if(data.values.begin(), data.values.end(), std::back_inserter(shown),
                 [&](double value) { return range.Holds(value); });
    return shown;
}

std::vector<int> CountBins(const std::vector<double>& shown, const Range& range, int bins)
{
    std::vector<int> counts(static_cast<std::size_t>(bins));
    for (const double value : shown) {
        const double place = (value - range.from) / (range.to - range.from) * bins;
        ++counts[static_cast<std::size_t>(std::clamp(int(place), 0, bins - 1))];
    }
    return counts;
}

// The normal distribution that fits some values. Those far away would make it flat.
struct Fit {
    double count = 0, mean = 0, sigma = 0;

    explicit Fit(const std::vector<double>& values)
    {
        double squares = 0;
        for (const double value : values) {
            const double distance = value - mean;
            mean += distance / ++count;
            squares += distance * (value - mean);
        }
        sigma = count > 1 ? std::sqrt(squares / (count - 1)) : 0;
    }

    // How many values it lets expect in a bin at this value.
    double At(double value, double binWidth) const
    {
        const double z = (value - mean) / sigma;
        return count * binWidth / (sigma * std::sqrt(2 * std::numbers::pi)) * std::exp(-z * z / 2);
    }
};

// Square root rule over the range of the values, so that a narrow distribution between wide limits has its
// bins.
int BinsFor(const Range& ofValues, std::size_t count, const Range& axis)
{
    const double share = (ofValues.to - ofValues.from) / (axis.to - axis.from);
    const double wanted = std::clamp(std::sqrt(double(count)), 6.0, 30.0);
    return int(std::clamp(share > 0 ? wanted / share : wanted, 6.0, 90.0));
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

void DrawNormal(QPainter& painter, const PlotFrame& frame, const Fit& fit, const Range& range,
                double binWidth)
{
    QPainterPath curve;
    const double from = std::max(range.from, fit.mean - 4 * fit.sigma);
    const double to = std::min(range.to, fit.mean + 4 * fit.sigma);
    constexpr int steps = 40;
    for (int i = 0; i <= steps && to > from; ++i) {
        const double value = from + (to - from) * i / steps;
        const QPointF point(frame.X(value), frame.Y(fit.At(value, binWidth)));
        i == 0 ? curve.moveTo(point) : curve.lineTo(point);
    }
    painter.setPen(PlotPen(Ink::Fit, 1.25));
    painter.drawPath(curve);
}

// How many values are beyond the ends of the axis.
void DrawBeyond(QPainter& painter, const PlotFrame& frame, const MeasureData& data, const Range& range)
{
    const auto below = std::count_if(data.values.begin(), data.values.end(),
                                     [&](double value) { return value < range.from; });
    const auto above =
        std::count_if(data.values.begin(), data.values.end(), [&](double value) { return value > range.to; });
    const QRectF& inner = frame.GetInner();
    if (below > 0)
        DrawLabel(painter, {inner.left() + 3, inner.bottom() - 6}, Qt::AlignLeft | Qt::AlignBottom, Ink::Bad,
                  QStringLiteral("\u25C2 %1").arg(below));
    if (above > 0)
        DrawLabel(painter, {inner.right() - 3, inner.bottom() - 6}, Qt::AlignRight | Qt::AlignBottom,
                  Ink::Bad, QStringLiteral("%1 \u25B8").arg(above));
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

// A triangle at the edge for a value beyond it.
void AddArrow(QPainterPath& path, double x, double y, double direction)
{
    path.moveTo(x - 3, y - 5 * direction);
    path.lineTo(x + 3, y - 5 * direction);
    path.lineTo(x, y);
    path.closeSubpath();
}

/// Where the values of a trend are drawn; what lies beyond the axis is an arrow at its edge.
class TrendDots {
public:
    /// \param steps places are rounded to, of a pixel
    TrendDots(const PlotFrame& frame, const Range& range, double steps = 1)
        : m_frame(frame)
        , m_range(range)
        , m_steps(steps)
    {
    }

    double Rounded(double pixels) const { return std::round(pixels * m_steps) / m_steps; }

    void AddGood(double x, double value) { Add(m_good, x, value); }
    void AddBad(double x, double value) { Add(m_bad, x, value); }

    void Draw(QPainter& painter) const
    {
        painter.setPen(DotPen(Ink::Good));
        painter.drawPath(m_good);
        painter.setPen(DotPen(Ink::Bad));
        painter.drawPath(m_bad);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ColourOf(Ink::Bad));
        painter.drawPath(m_arrows);
        painter.setBrush(Qt::NoBrush);
    }

private:
    void Add(QPainterPath& path, double x, double value)
    {
        if (m_range.Holds(value))
            AddDot(path, x, Rounded(m_frame.Y(value)));
        else if (value > m_range.to)
            AddArrow(m_arrows, x, std::round(m_frame.GetInner().top()), -1);
        else
            AddArrow(m_arrows, x, std::round(m_frame.GetInner().bottom()), 1);
    }

    const PlotFrame& m_frame;
    const Range m_range;
    const double m_steps;
    QPainterPath m_good, m_bad, m_arrows;
};

void DrawDots(QPainter& painter, const PlotFrame& frame, const MeasureData& data, const Range& range)
{
    TrendDots dots(frame, range, data.values.size() > manyDots ? 1 : 10);
    for (std::size_t i = 0; i < data.values.size(); ++i) {
        const double x = dots.Rounded(frame.X(double(i)));
        data.IsGood(i) ? dots.AddGood(x, data.values[i]) : dots.AddBad(x, data.values[i]);
    }
    dots.Draw(painter);
}

// One upright line a column of pixels, from the least to the largest value that stands there.
void DrawColumns(QPainter& painter, const PlotFrame& frame, const MeasureData& data, const Range& range)
{
    struct Column {
        double least = INFINITY;
        double most = -INFINITY;
        void Take(double value)
        {
            least = std::min(least, value);
            most = std::max(most, value);
        }
    };
    constexpr double columnWidth = 2;
    std::vector<Column> columns(static_cast<std::size_t>(frame.GetInner().width() / columnWidth) + 1);
    std::vector<Column> failures(columns.size());
    for (std::size_t i = 0; i < data.values.size(); ++i) {
        const auto at =
            static_cast<std::size_t>((frame.X(double(i)) - frame.GetInner().left()) / columnWidth);
        const bool isGood = data.IsGood(i) && range.Holds(data.values[i]);
        (isGood ? columns : failures)[std::min(at, columns.size() - 1)].Take(data.values[i]);
    }
    QPainterPath path;
    TrendDots dots(frame, range);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double x = std::round(frame.GetInner().left() + double(i) * columnWidth);
        if (columns[i].least <= columns[i].most) {
            path.moveTo(x, std::round(frame.Y(columns[i].least) + 0.5));
            path.lineTo(x, std::round(frame.Y(columns[i].most) - 0.5));
        }
        if (failures[i].least <= failures[i].most) {
            dots.AddBad(x, failures[i].least);
            if (failures[i].most > failures[i].least)
                dots.AddBad(x, failures[i].most);
        }
    }
    painter.setPen(PlotPen(Ink::Good, columnWidth * 0.75));
    painter.drawPath(path);
    dots.Draw(painter);
}

// Lines where something began for the first time; ticks at the edge where it did again.
void DrawMarks(QPainter& painter, PlotFrame& frame, const MeasureData& data)
{
    constexpr double tickHeight = 7;
    const double top = frame.GetInner().top();
    double taken = -INFINITY;
    double last = -INFINITY;
    QPainterPath ticks;
    for (const MeasureData::Mark& mark : data.marks) {
        const double x = frame.X(double(mark.index));
        const double half = LabelWidth(mark.text) / 2 + 3;
        if (!mark.text.isEmpty() && x - half > taken) {
            frame.DrawUpright(double(mark.index), Ink::Mark, Qt::DashLine, mark.text);
            taken = std::max(x, frame.GetInner().left() + half) + half;
        } else if (x - last >= 2) {
            ticks.moveTo(Tenths(x), top);
            ticks.lineTo(Tenths(x), top + tickHeight);
            last = x;
        }
    }
    painter.setPen(PlotPen(Ink::Mark, 1.5));
    painter.drawPath(ticks);
}

// Numbers of a hexadecimal unit would be decimal on an axis: they have no unit there.
QString AxisUnitOf(const MeasureData& data)
{
    return data.isDecimal ? data.unit : QString();
}

} // namespace

void DrawHistogram(QPainter& painter, const QRectF& area, const MeasureData& data)
{
    if (data.values.empty())
        return;
    const Range wanted = RangeOf(data);
    const Axis across(wanted.from, wanted.to, 6);
    const Range range{across.GetFrom(), across.GetTo()};
    const Range usual = RangeOfValues(data.values, outlying);
    const std::vector<int> counts =
        CountBins(ShownOf(data, range), range, BinsFor(usual, data.values.size(), range));
    const double binWidth = (range.to - range.from) / double(counts.size());
    const Fit fit(ShownOf(data, usual));
    double most = std::max(4, *std::max_element(counts.begin(), counts.end()));
    const bool isFit = fit.count >= leastToFit && fit.sigma > 0;
    if (isFit)
        most = std::max(most, fit.At(fit.mean, binWidth));
    PlotFrame frame(painter, area, {across, AxisUnitOf(data)}, {Axis(0, most, 4), {}});
    frame.DrawUp();
    DrawBars(painter, frame, counts, range);
    if (isFit)
        DrawNormal(painter, frame, fit, range, binWidth);
    if (data.lower)
        frame.DrawUpright(*data.lower, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "LL"),
                          Qt::AlignLeft);
    if (data.upper)
        frame.DrawUpright(*data.upper, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "UL"),
                          Qt::AlignRight);
    DrawBeyond(painter, frame, data, range);
    frame.DrawAcross();
}

std::vector<FailedDot> DrawTrend(QPainter& painter, const QRectF& area, const MeasureData& data)
{
    if (data.values.empty())
        return {};
    const Range wanted = RangeOf(data);
    const double last = double(std::max<std::size_t>(data.values.size(), 2) - 1);
    const Axis up(wanted.from, wanted.to, 5);
    const Range range{up.GetFrom(), up.GetTo()};
    PlotFrame frame(painter, area, {Axis::UpTo(last, 8), {}}, {up, AxisUnitOf(data)});
    frame.DrawUp();
    if (double(data.values.size()) > frame.GetInner().width() * 1.5)
        DrawColumns(painter, frame, data, range);
    else
        DrawDots(painter, frame, data, range);
    if (data.mean)
        frame.DrawLevel(*data.mean, Ink::Mean, Qt::SolidLine, {});
    if (data.lower)
        frame.DrawLevel(*data.lower, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "LL"),
                        Qt::AlignBottom);
    if (data.upper)
        frame.DrawLevel(*data.upper, Ink::Limit, Qt::DashLine, QCoreApplication::translate("zyn", "UL"));
    DrawMarks(painter, frame, data);
    frame.DrawAcross();
    std::vector<FailedDot> failed;
    for (std::size_t i = 0; i < data.values.size(); ++i)
        if (!data.IsGood(i))
            failed.push_back({i,
                              {frame.X(double(i)), std::clamp(frame.Y(data.values[i]), frame.GetInner().top(),
                                                              frame.GetInner().bottom())}});
    return failed;
}

} // namespace ZYN::Page
