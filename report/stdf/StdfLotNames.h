#pragma once

#include <QtCore/QString>

namespace ZYN {

/// What tells one lot file from another.
struct StdfLotNames {
    QString lotId;
    QString partType;
    QString nodeName;
    bool operator==(const StdfLotNames&) const = default;
};

} // namespace ZYN
