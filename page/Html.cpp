#include "page/Html.h"

namespace ZYN::Page {

namespace {

// Control characters, and marks that turn the writing direction of what follows them.
bool IsHarmless(QChar character)
{
    const QChar::Category category = character.category();
    return category != QChar::Other_Control && category != QChar::Other_Format &&
           category != QChar::Separator_Line && category != QChar::Separator_Paragraph;
}

} // namespace

QString Harmless(const QString& text)
{
    QString harmless;
    harmless.reserve(text.size());
    for (const QChar character : text) {
        if (IsHarmless(character))
            harmless += character;
        else
            harmless += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
    return harmless;
}

QString Escaped(const QString& text)
{
    return Harmless(text).toHtmlEscaped();
}

} // namespace ZYN::Page
