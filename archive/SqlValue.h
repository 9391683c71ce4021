#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <optional>
#include <string>

/// \file
/// What is bound to statements.

namespace ZYN {

/// A text that is never null.
inline QVariant SqlText(const std::string& text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// A text; an empty one is null.
inline QVariant SqlTextOrNull(const std::string& text)
{
    return text.empty() ? QVariant() : SqlText(text);
}

inline QVariant SqlBytes(const std::string& bytes)
{
    return QByteArray(bytes.data(), qsizetype(bytes.size()));
}

template <typename Number>
QVariant SqlNumber(const std::optional<Number>& number)
{
    return number ? QVariant::fromValue(*number) : QVariant();
}

} // namespace ZYN
