#include "TextSheet.h"

#include <algorithm>

namespace ZYN {

void TextSheet::EmptyLine()
{
    EndLine();
}

void TextSheet::Banner(QStringView text, QChar pad)
{
    Field(text, lineWidth, Align::Centre, pad);
    EndLine();
}

void TextSheet::Rule(QChar pad)
{
    m_line.Add(lineWidth, pad);
    EndLine();
}

void TextSheet::Label(QStringView label, QStringView value, int width)
{
    Field(label, width, Align::Left, u' ');
    m_line.Add(value);
    EndLine();
}

void TextSheet::Cell(QStringView text, int width, Align align, int indentation)
{
    m_line.Add(indentation, u' ');
    Field(text, width - indentation, align, u' ');
    m_line.Add(u" | ");
}

void TextSheet::EndLine()
{
    m_stream << m_line.View() << Qt::endl;
    m_line.Clear();
}

void TextSheet::Field(QStringView text, int width, Align align, QChar pad)
{
    const qsizetype padding = std::max<qsizetype>(0, width - text.size());
    const qsizetype before = align == Align::Centre ? padding / 2 : 0;
    char16_t* const field = m_line.Append(text.size() + padding);
    std::fill_n(field, text.size() + padding, pad.unicode());
    std::copy_n(text.utf16(), text.size(), field + before);
}

} // namespace ZYN
