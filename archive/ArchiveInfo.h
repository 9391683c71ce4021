#pragma once

#include "archive/ArchiveGlobal.h"

#include <QtCore/QString>

#include <cstdint>
#include <optional>

namespace ZYN {

class Archive;

/// What an archive holds.
struct ArchiveInfo {
    QString kind;              ///< "SQLite" or "PostgreSQL"
    int version = 0;           ///< of its tables
    std::int64_t runs = 0;     ///< current ones
    std::int64_t replaced = 0; ///< runs of which there is a later revision
    std::int64_t units = 0, products = 0, lots = 0, programs = 0;
    std::int64_t values = 0;                 ///< results of components in all runs
    std::int64_t bytes = 0;                  ///< that the database takes on disk
    std::optional<std::int64_t> first, last; ///< start of the first and the last run, ms since 1970, UTC
};

/// Counts what an open archive holds; on the archive's thread.
ZYNARCHIVE_EXPORT std::optional<ArchiveInfo> AskInfo(const Archive& archive);

} // namespace ZYN
