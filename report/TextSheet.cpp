#include "TextSheet.h"

namespace ZYN {

void TextSheet::EmptyLine()
{
    stream << Qt::endl;
}

void TextSheet::Banner(const QString& text, QChar pad)
{
    Field(text, lineWidth, QTextStream::AlignCenter, pad);
    stream << Qt::endl;
}

void TextSheet::Rule(QChar pad)
{
    Field(QString(), lineWidth, QTextStream::AlignLeft, pad);
    stream << Qt::endl;
}

void TextSheet::Label(const QString& label, const QString& value, int width)
{
    Field(label, width, QTextStream::AlignLeft, QLatin1Char(' '));
    stream << value << Qt::endl;
}

void TextSheet::Cell(const QString& text, int width, QTextStream::FieldAlignment alignment)
{
    Field(text, width, alignment, QLatin1Char(' '));
    stream << " | ";
}

void TextSheet::EndLine()
{
    stream << Qt::endl;
}

void TextSheet::Field(const QString& text, int width, QTextStream::FieldAlignment alignment, QChar pad)
{
    const QTextStream::FieldAlignment alignmentBefore = stream.fieldAlignment();
    stream.setFieldWidth(width);
    stream.setFieldAlignment(alignment);
    stream.setPadChar(pad);
    stream << text;
    stream.setPadChar(QLatin1Char(' '));
    stream.setFieldAlignment(alignmentBefore);
    // Everything else, line ends included, would be padded too.
    stream.setFieldWidth(0);
}

} // namespace ZYN
