#include "XmlText.h"

#include <algorithm>

namespace ZYN {

namespace {

/// What may be wrong, decided from one code unit; whether a surrogate is lone shows only beside others.
bool IsSuspicious(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit < 0x20)
        return unit != u'\t' && unit != u'\n' && unit != u'\r';
    return unit >= 0xd800 && (c.isSurrogate() || unit >= 0xfffe);
}

} // namespace

QString XmlText(const QString& text)
{
    const auto first = std::find_if(text.cbegin(), text.cend(), IsSuspicious);
    if (first == text.cend())
        return text;
    QString clean = text;
    for (qsizetype i = first - text.cbegin(); i < clean.size(); ++i) {
        const QChar c = clean.at(i);
        if (!IsSuspicious(c))
            continue;
        if (c.isHighSurrogate() && i + 1 < clean.size() && clean.at(i + 1).isLowSurrogate())
            ++i;
        else
            clean[i] = QChar::ReplacementCharacter;
    }
    return clean;
}

} // namespace ZYN
