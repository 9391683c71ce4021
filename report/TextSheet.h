#pragma once

#include <QtCore/QString>
#include <QtCore/QTextStream>

namespace ZYN {

/// The line shapes of a fixed-width text. Knows widths and padding and nothing of the model.
///
/// Widths count UTF-16 units, as `QTextStream` does; text that is too long is not cut. Between calls the
/// stream's field width is 0 and its padding a blank.
class TextSheet {
public:
    static constexpr int lineWidth = 100;

    explicit TextSheet(QTextStream& output)
        : stream(output)
    {
    }

    void EmptyLine();
    /// A centred text between pad characters.
    void Banner(const QString& text, QChar pad);
    /// A line of pad characters.
    void Rule(QChar pad);
    /// A label in a field of blanks, then the value.
    void Label(const QString& label, const QString& value, int width);
    /// One cell of a table line with the separator behind it.
    void Cell(const QString& text, int width, QTextStream::FieldAlignment alignment = QTextStream::AlignLeft);
    /// Ends a table line.
    void EndLine();

private:
    void Field(const QString& text, int width, QTextStream::FieldAlignment alignment, QChar pad);

    QTextStream& stream;
};

} // namespace ZYN
