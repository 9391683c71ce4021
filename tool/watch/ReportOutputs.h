#pragma once

#include "files/Inputs.h"
#include "lotfile/LotWriter.h"
#include "terminal/Problem.h"

#include <QtCore/QList>

#include <memory>
#include <optional>

namespace ZYN::Tool {

/// What a watcher writes of each report beside the archive: reports of other formats, each into a folder, and
/// the parts of one STDF lot. Writing it once more changes nothing: a converted report takes the place of the
/// one that is there, and a part that stands in the lot is left out. So whoever was killed begins again.
class ReportOutputs {
public:
    struct Target {
        QString folder;
        QString format; ///< as the export service knows it
    };

    /// \param lot STDF lot file; empty for none
    ReportOutputs(const QList<Target>& targets, const QString& lot);

    /// Makes the folders.
    /// \return why nothing can be written
    std::optional<Problem> Prepare();
    /// Writes all of a report, or of an STDF lot.
    /// \return a problem that has the input's name where the input is bad, else what is wrong with an output
    std::optional<Problem> Write(const Input& input);

private:
    std::optional<Problem> AddToLot(const Input& input);

    QList<Target> m_targets;
    QString m_lotFile;
    std::unique_ptr<LotWriter> m_lot; ///< remembers which parts stand there; null for none
};

} // namespace ZYN::Tool
