#include "page/PlotFrame.h"

#include "page/Html.h"

#include <QtGui/QFontMetricsF>

#include <algorithm>

namespace ZYN::Page {

namespace {

constexpr double fontPixels = 11;
constexpr double lineHeight = 14;
constexpr double gap = 6;

double WidestLabel(const std::vector<Tick>& ticks)
{
    double widest = 0;
    for (const Tick& tick : ticks)
        widest = std::max(widest, LabelWidth(tick.label));
    return widest;
}

} // namespace

QFont PlotFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(int(fontPixels));
    return font;
}

QPen PlotPen(Ink ink, double width, Qt::PenStyle style)
{
    QPen pen(ColourOf(ink), width, style, Qt::FlatCap);
    if (style == Qt::DashLine)
        pen.setDashPattern({5, 3});
    return pen;
}

double LabelWidth(const QString& text)
{
    return QFontMetricsF(PlotFont()).horizontalAdvance(text);
}

void DrawLabel(QPainter& painter, const QPointF& at, Qt::Alignment alignment, Ink ink, const QString& text)
{
    if (text.isEmpty())
        return;
    const double width = LabelWidth(text);
    double x = at.x();
    if (alignment & Qt::AlignRight)
        x -= width;
    else if (alignment & Qt::AlignHCenter)
        x -= width / 2;
    const double ascent = fontPixels * 0.36;
    const double y = alignment & Qt::AlignTop      ? at.y() + fontPixels
                     : alignment & Qt::AlignBottom ? at.y()
                                                   : at.y() + ascent;
    painter.setPen(ColourOf(ink));
    painter.drawText(QPointF(x, y), Harmless(text));
}

PlotFrame::PlotFrame(QPainter& painter, const QRectF& area, const AxisOfPlot& across, const AxisOfPlot& up)
    : m_painter(painter)
    , m_across(across)
    , m_up(up)
    , m_left(area.left())
    , m_inner(area)
{
    painter.setFont(PlotFont());
    m_inner.adjust(WidestLabel(up.axis.Ticks(up.unit)) + gap + 2, lineHeight + 8, -lineHeight,
                   -lineHeight - gap);
}

void PlotFrame::DrawUp()
{
    for (const Tick& tick : m_up.axis.Ticks(m_up.unit)) {
        const double y = Y(tick.value);
        m_painter.setPen(PlotPen(Ink::Grid));
        m_painter.drawLine(QPointF(m_inner.left(), y), QPointF(m_inner.right(), y));
        DrawLabel(m_painter, {m_inner.left() - gap, y}, Qt::AlignRight, Ink::Faint, tick.label);
    }
    DrawLabel(m_painter, {m_inner.left() - gap, m_inner.top() - lineHeight - 6},
              Qt::AlignRight | Qt::AlignTop, Ink::Faint, m_up.axis.UnitText(m_up.unit));
}

void PlotFrame::DrawAcross()
{
    m_painter.setPen(PlotPen(Ink::Faint));
    m_painter.drawLine(m_inner.bottomLeft(), m_inner.bottomRight());
    const QString unitText = m_across.axis.UnitText(m_across.unit);
    // The unit takes the place of the last numbers.
    double free = m_inner.right() + lineHeight;
    if (!unitText.isEmpty()) {
        DrawLabel(m_painter, {free, m_inner.bottom() + gap - 2}, Qt::AlignRight | Qt::AlignTop, Ink::Faint,
                  unitText);
        free -= LabelWidth(unitText) + gap;
    }
    double taken = m_left;
    for (const Tick& tick : m_across.axis.Ticks(m_across.unit)) {
        const double x = X(tick.value);
        m_painter.setPen(PlotPen(Ink::Faint));
        m_painter.drawLine(QPointF(x, m_inner.bottom()), QPointF(x, m_inner.bottom() + 3));
        const double half = LabelWidth(tick.label) / 2;
        if (x - half < taken || x + half > free)
            continue;
        DrawLabel(m_painter, {x, m_inner.bottom() + gap - 2}, Qt::AlignHCenter | Qt::AlignTop, Ink::Faint,
                  tick.label);
        taken = x + half + gap;
    }
}

void PlotFrame::DrawLevel(double value, Ink ink, Qt::PenStyle style, const QString& text, Qt::Alignment side)
{
    const double y = Y(value);
    if (y < m_inner.top() - 1 || y > m_inner.bottom() + 1)
        return;
    m_painter.setPen(PlotPen(ink, 1.25, style));
    m_painter.drawLine(QPointF(m_inner.left(), y), QPointF(m_inner.right(), y));
    const bool isBelow = side == Qt::AlignBottom && y + lineHeight < m_inner.bottom();
    DrawLabel(m_painter, {m_inner.right() - 2, isBelow ? y + 2 : y - 3},
              Qt::AlignRight | (isBelow ? Qt::AlignTop : Qt::AlignBottom), ink, text);
}

void PlotFrame::DrawUpright(double value, Ink ink, Qt::PenStyle style, const QString& text,
                            Qt::Alignment side)
{
    const double x = X(value);
    if (x < m_inner.left() - 1 || x > m_inner.right() + 1)
        return;
    m_painter.setPen(PlotPen(ink, 1.25, style));
    m_painter.drawLine(QPointF(x, m_inner.top()), QPointF(x, m_inner.bottom()));
    const double half = LabelWidth(text) / 2;
    const double away = half + 1;
    const double wanted = side == Qt::AlignLeft ? x - away : side == Qt::AlignRight ? x + away : x;
    const double centre = std::clamp(wanted, m_inner.left() + half, m_inner.right() + lineHeight - half);
    DrawLabel(m_painter, {centre, m_inner.top() - 4}, Qt::AlignHCenter | Qt::AlignBottom, ink, text);
}

} // namespace ZYN::Page
