#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QMap>
#include <QtCore/QString>

namespace ZYN {

enum class BinType { Hard = 0, Soft = 1 };
enum class BinResult { Pass = 0, Fail = 1 };

/// One bin of a tester's sorter.
struct BinDefinition {
    qint32 id = 0;
    QString name;
    BinType type = BinType::Hard;
    BinResult result = BinResult::Pass;
};

/// A binning definition. Ids and names are unique. Not valid: no file name, no bins.
struct Binning {
    bool valid = false;
    QString fileName;
    QMap<qint32, BinDefinition> bins;
};

} // namespace ZYN
