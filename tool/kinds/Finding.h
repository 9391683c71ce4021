#pragma once

#include <QtCore/QString>

namespace ZYN::Tool {

/// Something that `zyn check` says about a file.
struct Finding {
    bool isError = true; ///< false: worth knowing, but the file is good
    qint64 line = 0;     ///< from 1; 0 when it concerns the whole file
    qint64 column = 0;   ///< from 1; 0 when it concerns the whole line
    QString text;
    qint64 offset = -1; ///< in a binary file: byte from 0 at which the place begins; -1 for none
};

} // namespace ZYN::Tool
