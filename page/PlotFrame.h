#pragma once

#include "page/Axis.h"
#include "page/Ink.h"

#include <QtCore/QRectF>
#include <QtGui/QPainter>

namespace ZYN::Page {

struct AxisOfPlot {
    Axis axis;
    QString unit; ///< of its values; empty for none
};

/// The place of a plot's data with its axes, and where a value lies in it. Everything is in pixels of a web
/// page.
class PlotFrame {
public:
    /// \param area of the whole plot; the frame leaves room for the labels of the axes
    PlotFrame(QPainter& painter, const QRectF& area, const AxisOfPlot& across, const AxisOfPlot& up);

    /// Where the data stand.
    const QRectF& GetInner() const { return m_inner; }
    double X(double value) const { return m_inner.left() + m_across.axis.Place(value) * m_inner.width(); }
    double Y(double value) const { return m_inner.bottom() - m_up.axis.Place(value) * m_inner.height(); }

    /// Lines and numbers of the upright axis, with its unit above.
    void DrawUp();
    /// Numbers of the other axis, thinned so that none touches another.
    void DrawAcross();
    /// A line from one side to the other at a value, with a text at its end. Outside the frame nothing is
    /// drawn. \param side of the line where the text stands: above or below; there only if there is room
    void DrawLevel(double value, Ink ink, Qt::PenStyle style, const QString& text,
                   Qt::Alignment side = Qt::AlignTop);
    /// The same upright. \param side left, right or in the middle
    void DrawUpright(double value, Ink ink, Qt::PenStyle style, const QString& text,
                     Qt::Alignment side = Qt::AlignHCenter);

private:
    QPainter& m_painter;
    AxisOfPlot m_across;
    AxisOfPlot m_up;
    double m_left; // of the whole plot
    QRectF m_inner;
};

/// Fonts and pens that all plots share.
QFont PlotFont();
QPen PlotPen(Ink ink, double width = 1, Qt::PenStyle style = Qt::SolidLine);
/// Writes a text beside a point. Drawn within the area even where the point is at its edge.
void DrawLabel(QPainter& painter, const QPointF& at, Qt::Alignment alignment, Ink ink, const QString& text);
double LabelWidth(const QString& text);

} // namespace ZYN::Page
