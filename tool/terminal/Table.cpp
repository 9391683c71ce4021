#include "terminal/Table.h"

#include <utility>

namespace ZYN::Tool {

namespace {

constexpr int gap = 2;
constexpr int narrowestColumn = 20;

// The end of a text, with an ellipsis in front.
QString CutFront(const QString& text, int columns)
{
    QString end = text;
    while (Columns(end) > columns - 1 && !end.isEmpty())
        end.remove(0, end.at(0).isHighSurrogate() ? 2 : 1);
    return QChar(0x2026) + end;
}

} // namespace

QList<int> Table::FullWidths() const
{
    QList<int> widths;
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        int width = 0;
        for (const QList<TableCell>& row : m_rows)
            width = qMax(width, Columns(row.at(i).text));
        widths.append(width > 0 ? qMax(width, Columns(m_columns.at(i).title)) : 0);
    }
    return widths;
}

QList<int> Table::Widths() const
{
    QList<int> widths = FullWidths();
    int excess = -gap;
    for (const int width : widths)
        excess += width > 0 ? width + gap : 0;
    excess = OutputColumns() > 0 ? excess - OutputColumns() : 0;
    // What can be had by shrinking, as it tells more than a column that is left out.
    int slack = 0;
    for (qsizetype i = 0; i < widths.size(); ++i)
        slack += m_columns.at(i).shrinks ? qMax(0, widths.at(i) - narrowestColumn) : 0;
    for (qsizetype i = widths.size(); i-- > 0 && excess > slack;) {
        if (m_columns.at(i).drops && widths.at(i) > 0)
            excess -= std::exchange(widths[i], 0) + gap;
    }
    for (qsizetype i = widths.size(); i-- > 0 && excess > 0;) {
        if (!m_columns.at(i).shrinks || widths.at(i) <= narrowestColumn)
            continue;
        const int less = qMin(excess, widths.at(i) - narrowestColumn);
        widths[i] -= less;
        excess -= less;
    }
    return widths;
}

QString Table::Line(const QList<TableCell>& cells, const QList<int>& widths) const
{
    QString line;
    int blanks = 0; // only written in front of a text: no line ends in blanks
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const int width = widths.at(i);
        if (width == 0)
            continue;
        QString text = cells.at(i).text;
        if (Columns(text) > width)
            text = CutFront(text, width);
        const int rest = width - Columns(text);
        const bool isRight = m_columns.at(i).side == TableColumn::Side::Right;
        if (!text.isEmpty()) {
            line += QString(blanks + (isRight ? rest : 0), QLatin1Char(' ')) + Paint(text, cells.at(i).style);
            blanks = isRight ? gap : rest + gap;
        } else {
            blanks += width + gap;
        }
    }
    return line + QLatin1Char('\n');
}

void Table::Print() const
{
    const QList<int> widths = Widths();
    QList<TableCell> titles;
    for (const TableColumn& column : m_columns)
        titles.append({column.title, Style::Bold});
    QString text = Line(titles, widths);
    for (const QList<TableCell>& row : m_rows)
        text += Line(row, widths);
    Tool::Print(text);
}

} // namespace ZYN::Tool
