#include "page/PdfSheet.h"

#include "page/Html.h"
#include "page/PlotFrame.h"

#include <QtGui/QFontMetricsF>

namespace ZYN::Page {

namespace {

constexpr int resolution = 1200;
constexpr double pixelsPerInch = 96;
constexpr double marginMillimetres = 12;
constexpr double rowHeight = 16;
constexpr double rowPixels = 9;

QFont FontOf(double pixels, bool isBold = false)
{
    QFont font = PlotFont();
    font.setPixelSize(int(pixels));
    font.setBold(isBold);
    return font;
}

} // namespace

PdfSheet::PdfSheet(QIODevice& device, const QString& title)
    : m_writer(&device)
{
    m_writer.setPageSize(QPageSize(QPageSize::A4));
    m_writer.setPageMargins(
        QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
        QPageLayout::Millimeter);
    m_writer.setResolution(resolution);
    m_writer.setTitle(title);
    m_isGood = m_painter.begin(&m_writer);
    const double scale = resolution / pixelsPerInch;
    m_painter.scale(scale, scale);
    m_width = m_writer.width() / scale;
    m_height = m_writer.height() / scale - rowHeight;
    DrawNumber();
}

bool PdfSheet::Finish()
{
    return m_painter.end() && m_isGood;
}

void PdfSheet::DrawNumber()
{
    m_painter.setFont(FontOf(rowPixels));
    DrawLabel(m_painter, {m_width, m_height + rowHeight - 2}, Qt::AlignRight | Qt::AlignBottom, Ink::Faint,
              QString::number(m_page));
}

void PdfSheet::NewPage()
{
    m_isGood = m_isGood && m_writer.newPage();
    ++m_page;
    m_y = 0;
    DrawNumber();
}

void PdfSheet::Need(double height)
{
    if (m_y > 0 && m_y + height > m_height)
        NewPage();
}

void PdfSheet::Line(const QString& text, double pixels, Ink ink, bool isBold)
{
    Need(pixels * 1.5);
    const QFont font = FontOf(pixels, isBold);
    m_painter.setFont(font);
    m_painter.setPen(ColourOf(ink));
    m_y += pixels * 1.5;
    m_painter.drawText(QPointF(0, m_y - pixels * 0.4),
                       QFontMetricsF(font).elidedText(Harmless(text), Qt::ElideMiddle, m_width));
}

void PdfSheet::Paragraph(const QString& text, Ink ink)
{
    const QFont font = FontOf(rowPixels);
    const QString harmless = Harmless(text);
    constexpr int flags = Qt::AlignLeft | Qt::TextWrapAnywhere | Qt::TextWordWrap;
    const double height =
        QFontMetricsF(font).boundingRect(QRectF(0, 0, m_width, m_height), flags, harmless).height() + 3;
    Need(height);
    m_painter.setFont(font);
    m_painter.setPen(ColourOf(ink));
    m_painter.drawText(QRectF(0, m_y, m_width, height), flags, harmless);
    m_y += height;
}

void PdfSheet::Plot(double height, const std::function<void(QPainter&, const QRectF&)>& draw)
{
    Need(height);
    draw(m_painter, QRectF(0, m_y, m_width, height));
    m_y += height;
}

void PdfSheet::BeginTable(const std::vector<Column>& columns)
{
    m_columns = columns;
    QStringList titles;
    for (const Column& column : columns)
        titles.append(column.title);
    Need(3 * rowHeight);
    Cells(titles, Ink::Faint);
}

void PdfSheet::Row(const QStringList& cells)
{
    if (m_y + rowHeight > m_height) {
        NewPage();
        BeginTable(std::vector<Column>(m_columns));
    }
    Cells(cells, Ink::Text);
}

void PdfSheet::Cells(const QStringList& cells, Ink ink)
{
    const QFont font = FontOf(rowPixels);
    m_painter.setFont(font);
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const Column& column = m_columns[std::size_t(i)];
        const double left = column.from * m_width;
        const double width = (column.to - column.from) * m_width - 6;
        const QString text = QFontMetricsF(font).elidedText(Harmless(cells[i]), Qt::ElideMiddle, width);
        m_painter.setPen(ColourOf(ink));
        m_painter.drawText(QRectF(left, m_y, width, rowHeight),
                           Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft), text);
    }
    m_y += rowHeight;
    m_painter.setPen(PlotPen(Ink::Grid, 0.6));
    m_painter.drawLine(QPointF(0, m_y), QPointF(m_width, m_y));
}

} // namespace ZYN::Page
