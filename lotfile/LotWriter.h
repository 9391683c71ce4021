#pragma once

#include "lotfile/LockedLot.h"
#include "lotfile/LotContents.h"
#include "lotfile/LotParts.h"
#include "text/Problem.h"

#include <QtCore/QHash>

#include <optional>

namespace ZYN {

/// Why parts went to a file beside the lot.
enum class Beside {
    No,           ///< they did not
    OtherLot,     ///< they are of another lot, product type or machine
    Unrecognised, ///< a name of their lot is never recognised in a file
    NamelessLot   ///< the lot is cut off before it says whose it is
};

/// What became of the parts of a report.
struct LotEntry {
    QString file; ///< where they are
    Beside beside = Beside::No;
    qsizetype added = 0;
    qsizetype present = 0; ///< stood there already and were left out
    std::optional<Problem> problem = {};
};

/// The parts of a report, borrowed, and what to call it in messages.
struct LotReport {
    const LotParts* parts = nullptr;
    QString name;
};

/// Adds parts to an STDF lot file, or to a file beside it where they are not of that lot. Each report's parts
/// are written at once, under a lock; a process that is killed meanwhile leaves what was there before.
class LotWriter {
public:
    /// \param again add also what stands there already
    LotWriter(const QString& path, bool again);

    const QString& Path() const { return m_path; }
    /// Why nothing can be added; nothing when it can.
    std::optional<Problem> Refusal();
    /// Adds the parts of a report.
    /// \param name what to call the report in messages
    LotEntry Add(const LotParts& parts, const QString& name);
    /// Adds the parts of several reports; those of the lot at once. Then all of them are on the disk, or
    /// none. \return what became of each
    QList<LotEntry> Add(const QList<LotReport>& reports);
    /// Makes a lot that has not got any part yet: its header, and that there are none.
    void AddNone(const LotParts& parts);

private:
    struct Known {
        LotContents contents;
        QByteArray state; ///< of the file, when these were its contents
    };

    const LotContents& ContentsOf(const QString& path, const LockedLot& lot);
    LotEntry AddBeside(const LotParts& parts, const QString& name);
    QList<LotEntry> AddTo(LockedLot& lot, const QString& path, const QList<LotReport>& reports);

    QString m_path;
    bool m_again;
    QHash<QString, Known> m_known; // by path
};

/// What to say when parts do not fit.
Problem NotAdded(const QString& name, const QString& lot, bool putBack);

} // namespace ZYN
