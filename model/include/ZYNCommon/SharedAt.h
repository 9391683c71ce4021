#pragma once

#include <QtCore/QList>
#include <QtCore/QSharedPointer>

namespace ZYN {

/// A null pointer to refer to.
template <class Object>
inline const QSharedPointer<Object> NoObject;

/// The object at an index of a list; null outside the range. A reference, as a walk over a large program
/// would else spend its time counting references.
template <class Object>
const QSharedPointer<Object>& SharedAt(const QList<QSharedPointer<Object>>& list, int index)
{
    return index >= 0 && index < list.size() ? list.at(index) : NoObject<Object>;
}

} // namespace ZYN
