#include "JsonItems.h"

#include <QtCore/QJsonDocument>

namespace ZYN {

namespace {

/// A lone surrogate is no character, and `QJsonDocument` writes it as an escape that strict readers
/// refuse: U+FFFD stands for it as in the other formats. No other escape begins like this one.
void ReplaceLoneSurrogates(QByteArray& text)
{
    constexpr qsizetype escapeLength = 6;
    for (qsizetype place = 0; (place = text.indexOf('\\', place)) >= 0; place += 2) {
        if (text.mid(place, 3) == "\\ud")
            text.replace(place, escapeLength, "\xEF\xBF\xBD");
    }
}

QByteArray Text(const QJsonObject& object)
{
    QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
    ReplaceLoneSurrogates(text);
    return text;
}

} // namespace

JsonItems::JsonItems(const QJsonObject& item)
    : pieces{Text(item)}
{
}

JsonItems::JsonItems(const QJsonObject& item, const QString& key, const JsonItems& children)
{
    QJsonObject before;
    QJsonObject after;
    for (auto member = item.begin(); member != item.end(); ++member)
        (member.key() < key ? before : after).insert(member.key(), member.value());
    pieces.append(Text(before).chopped(1) + (before.isEmpty() ? "\"" : ",\"") + key.toUtf8() + "\":[");
    pieces.append(children.pieces);
    pieces.append((after.isEmpty() ? "]" : "],") + Text(after).sliced(1));
}

void JsonItems::Append(const JsonItems& items)
{
    if (!pieces.isEmpty())
        pieces.append(QByteArrayLiteral(","));
    pieces.append(items.pieces);
}

JsonItems JsonItems::Joined() const
{
    JsonItems joined;
    joined.pieces.append(pieces.join());
    return joined;
}

} // namespace ZYN
