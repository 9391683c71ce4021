#pragma once

#include <QtCore/QList>
#include <QtCore/QSharedPointer>

namespace ZYN {

/// The object at an index of a list; null outside the range. A reference, as a walk over a large program
/// would else spend its time counting references.
template <class Object>
const QSharedPointer<Object>& SharedAt(const QList<QSharedPointer<Object>>& list, int index)
{
    static const QSharedPointer<Object> none;
    return index >= 0 && index < list.size() ? list.at(index) : none;
}

} // namespace ZYN
