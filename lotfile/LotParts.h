#pragma once

#include "report/stdf/StdfLotFile.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

class QIODevice;

namespace ZYN {

class UUTTest;

/// Whose an STDF lot file is. Texts as they stand in the file, read as Latin-1: two files are of the same lot
/// if these are the same bytes.
struct LotNames {
    QString lot;
    QString product;
    QString machine;
    bool operator==(const LotNames&) const = default;

    /// The names of the first MIR of a file; nothing when it cannot be reached.
    static std::optional<LotNames> Of(QIODevice* file);
};

/// What a report gives to an STDF lot file, as the STDF format writes it into a file of its own.
struct LotParts {
    struct Part {
        QByteArray bytes;    ///< from its PIR to its PRR
        bool isClean = true; ///< no flag in its PRR says that it did not pass
    };
    QByteArray header; ///< FAR and MIR
    QList<Part> parts;
    QByteArray closing;         ///< PCR and MRR
    quint32 good = 0;           ///< GOOD_CNT: how many of the parts passed
    LotNames names;             ///< as they stand in the MIR
    StdfLotNames modelNames;    ///< as the report has them
    QString ident;              ///< the unit that gives a file beside the lot its name
    QMap<QString, int> without; ///< units that gave no part, by the reason
    QString beyondAscii;        ///< the first text that is not plain ASCII and its field; empty for none
};

/// Makes the parts of a report, in memory. Any thread, each model in one.
/// \return nothing when there is no room for them
std::optional<LotParts> MakeLotParts(UUTTest* test, bool ignoreReportFlag);

/// PCR and MRR of a file that holds other parts than those of a report.
QByteArray ClosingWith(const LotParts& parts, quint32 partCount, quint32 goodCount);

} // namespace ZYN
