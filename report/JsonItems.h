#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QJsonObject>

namespace ZYN {

/// Items of a JSON array, kept as text: a tree of them takes several times the memory.
///
/// The text is compact (`JsonIndenter` lays it out) and lies in pieces. Items that become part of another
/// item share their pieces with it, so that no text is copied on its way up.
class JsonItems {
public:
    JsonItems() = default;
    /// One item.
    explicit JsonItems(const QJsonObject& item);
    /// One item that holds others in an array, under a key that the object itself does not have.
    JsonItems(const QJsonObject& item, const QString& key, const JsonItems& children);

    void Append(const JsonItems& items);
    /// The same in one piece: a piece takes memory of its own, too much for each of many small items.
    JsonItems Joined() const;
    const QByteArrayList& Pieces() const { return pieces; }

private:
    QByteArrayList pieces;
};

} // namespace ZYN
