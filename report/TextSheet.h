#pragma once

#include "LineText.h"

#include <QtCore/QStringView>
#include <QtCore/QTextStream>

namespace ZYN {

/// The line shapes of a fixed-width text. Knows widths and padding and nothing of the model.
///
/// Widths count UTF-16 units; text that is too long is not cut. A centred text has the odd blank behind
/// it. (The same as the fields of a `QTextStream`, which are several times slower.)
class TextSheet {
public:
    enum class Align { Left, Centre };

    static constexpr int lineWidth = 100;

    explicit TextSheet(QTextStream& output)
        : m_stream(output)
    {
    }

    void EmptyLine();
    /// A centred text between pad characters.
    void Banner(QStringView text, QChar pad);
    /// A line of pad characters.
    void Rule(QChar pad);
    /// A label in a field of blanks, then the value.
    void Label(QStringView label, QStringView value, int width);
    /// One cell of a table line with the separator behind it.
    /// \param indentation blanks before the text, part of the width
    void Cell(QStringView text, int width, Align align = Align::Left, int indentation = 0);
    /// Ends a table line.
    void EndLine();

private:
    void Field(QStringView text, int width, Align align, QChar pad);

    QTextStream& m_stream;
    LineText m_line;
};

} // namespace ZYN
