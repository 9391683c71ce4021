#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSizeF>
#include <QtCore/QString>

#include <functional>

class QPainter;
class QRectF;

namespace ZYN::Page {

/// A plot as an SVG element that stands inside a page: colours are variables of the page's style sheet, texts
/// have the page's font, nothing has an id.
/// \param title, description for who does not see it; not yet escaped
/// \param links elements above the picture, asked for once it is drawn
QByteArray SvgPlot(const QSizeF& size, const QString& title, const QString& description,
                   const std::function<void(QPainter&, const QRectF&)>& draw,
                   const std::function<QString()>& links = {});

} // namespace ZYN::Page
