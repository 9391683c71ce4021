#include "TextSheet.h"

#include <algorithm>

namespace ZYN {

using namespace Qt::StringLiterals;

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
    Fill(lineWidth, pad);
    EndLine();
}

void TextSheet::Label(QStringView label, QStringView value, int width)
{
    Field(label, width, Align::Left, u' ');
    line += value;
    EndLine();
}

void TextSheet::Cell(QStringView text, int width, Align align, int indentation)
{
    Fill(indentation, u' ');
    Field(text, width - indentation, align, u' ');
    line += " | "_L1;
}

void TextSheet::EndLine()
{
    stream << line << Qt::endl;
    line.resize(0);
}

void TextSheet::Field(QStringView text, int width, Align align, QChar pad)
{
    const qsizetype padding = std::max<qsizetype>(0, width - text.size());
    const qsizetype before = align == Align::Centre ? padding / 2 : 0;
    Fill(before, pad);
    line += text;
    Fill(padding - before, pad);
}

void TextSheet::Fill(qsizetype count, QChar pad)
{
    line.resize(line.size() + count, pad);
}

} // namespace ZYN
