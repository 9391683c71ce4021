#include "JsonItems.h"

#include <QtCore/QJsonDocument>

namespace ZYN {

namespace {

QByteArray Text(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
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
