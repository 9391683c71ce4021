#pragma once

#include <QtCore/QVariant>

#include <limits>
#include <optional>

namespace ZYN::NumericVariant {

/// What a variant holds, as far as measured values are concerned.
enum class Kind { Other, Signed, Unsigned, Single, Real };

/// A boolean is an integer of value 1 or 0.
inline Kind KindOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::SChar:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return Kind::Signed;
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return Kind::Unsigned;
    case QMetaType::Float:
        return Kind::Single;
    case QMetaType::Double:
        return Kind::Real;
    default:
        return Kind::Other;
    }
}

/// A number that holds every 64-bit integer and every `double` exactly, so that comparing needs no
/// cases for the kinds.
using Exact = long double;
static_assert(std::numeric_limits<Exact>::digits >= 64);

/// The number a variant holds; nothing for a text and for what is no number at all.
inline std::optional<Exact> ExactOf(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    switch (KindOf(value)) {
    case Kind::Signed:
        return Exact(value.toLongLong());
    case Kind::Unsigned:
        return Exact(value.toULongLong());
    case Kind::Single:
    case Kind::Real:
        return Exact(value.toDouble());
    case Kind::Other:
        break;
    }
    return std::nullopt;
}

} // namespace ZYN::NumericVariant
