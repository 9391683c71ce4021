#include "page/Html.h"

#include "page/Axis.h"
#include "page/PageTexts.h"

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

QString Escaped(const QString& text)
{
    QString harmless;
    harmless.reserve(text.size());
    for (const QChar character : text) {
        if (IsHarmless(character))
            harmless += character;
        else
            harmless += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
    return harmless.toHtmlEscaped();
}

QString Percent(double part, double whole)
{
    return whole > 0 ? QString::number(100 * part / whole, 'f', 1) + QChar(0xA0) + QLatin1Char('%')
                     : QString();
}

QString Share(double part, double whole)
{
    if (!(whole > 0))
        return QString(QChar(0x2013));
    return Texts::tr("%1 (%2 of %3)")
        .arg(Percent(part, whole), QString::number(part), QString::number(whole));
}

QString Figure(double value, const QString& unit)
{
    return Escaped(WithUnit(value, unit, 5));
}

} // namespace ZYN::Page
