#pragma once

#include "page/Ink.h"

#include <QtCore/QRectF>
#include <QtCore/QStringList>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

#include <functional>

namespace ZYN::Page {

/// Pages of A4 that are filled from above; lengths are pixels of 96 to the inch, as on a web page.
class PdfSheet {
public:
    PdfSheet(QIODevice& device, const QString& title);

    /// Whether all could be written so far.
    bool IsGood() const { return m_isGood; }
    /// Completes the document. \return whether all was written
    bool Finish();

    double GetWidth() const { return m_width; }
    /// Goes to a new page unless so much is left on this one.
    void Need(double height);
    void NewPage();
    void Skip(double height) { m_y += height; }

    /// A line of text that loses its middle where it is too long. \param pixels height of the letters
    void Line(const QString& text, double pixels, Ink ink = Ink::Text, bool isBold = false);
    /// A text of several lines.
    void Paragraph(const QString& text, Ink ink = Ink::Text);
    /// A plot over the whole width. \param draw gets the area that is its own
    void Plot(double height, const std::function<void(QPainter&, const QRectF&)>& draw);

    /// Where a column of a table begins and ends, from 0 to 1, and whether it holds numbers.
    struct Column {
        double from = 0, to = 1;
        bool isNumber = false;
        QString title;
    };
    void BeginTable(const std::vector<Column>& columns);
    void Row(const QStringList& cells);

private:
    void Cells(const QStringList& cells, Ink ink);
    void DrawNumber();

    QPdfWriter m_writer;
    QPainter m_painter;
    bool m_isGood;
    double m_width, m_height;
    double m_y = 0;
    int m_page = 1;
    std::vector<Column> m_columns;
};

} // namespace ZYN::Page
