#pragma once

#include <QtCore/QString>

namespace ZYN {

/// Something that went wrong, as a sentence for the one who asked for it.
struct Problem {
    QString file;    ///< empty when it is about no file
    qint64 line = 0; ///< 0 when it is about the whole file
    QString what;    ///< "already exists"
    QString remedy;  ///< "add --force to replace it"; may be empty

    bool operator==(const Problem&) const = default;
};

/// "FILE:LINE: what; what to do".
QString TextOf(const Problem& problem);

} // namespace ZYN
