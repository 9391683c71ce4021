#pragma once

#include "runs/Run.h"

#include <QtCore/QVariant>

#include <string>

/// \file
/// Values by position as the databases keep them: JSON arrays in SQLite, arrays in PostgreSQL, JSON objects
/// for what stands at few positions. Written into one buffer, no object a value.

namespace ZYN {

enum class ArrayStyle {
    Json,      ///< [1,null]
    PostgreSql ///< {1,NULL}
};

/// What is no finite number is null.
QVariant ArrayOf(const std::vector<double>& numbers, ArrayStyle style);
QVariant ArrayOf(const std::vector<float>& numbers, ArrayStyle style);
/// `Run::NoCode` is null.
QVariant ArrayOf(const std::vector<std::int16_t>& codes, ArrayStyle style);
/// An empty text is null.
QVariant ArrayOf(const std::vector<std::string>& texts, ArrayStyle style);
/// 0 and 1 in JSON, so that SQL can count with them.
QVariant ArrayOf(const std::vector<bool>& flags, ArrayStyle style);

/// {"3":"nan"}; null where there is none.
QVariant ObjectOf(const Run::Texts& texts);

} // namespace ZYN
