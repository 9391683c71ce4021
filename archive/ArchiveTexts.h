#pragma once

#include <QtCore/QCoreApplication>

namespace ZYN {

/// What the archive says to people, in the user's language.
struct ArchiveTexts {
    Q_DECLARE_TR_FUNCTIONS(ZYNArchive)
};

} // namespace ZYN
