#pragma once

#include "files/Inputs.h"
#include "lots/LotAppend.h"
#include "terminal/Problem.h"

#include <QtCore/QList>

#include <memory>
#include <optional>
#include <vector>

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
    /// How many inputs to write at once: each core has something to do meanwhile, and memory has a bound.
    static qsizetype AtOnce();
    /// Writes all of some inputs, reports or STDF lots, on all cores.
    /// \return of each a problem that has the input's name where the input is bad, else what is wrong with an
    /// output
    std::vector<std::optional<Problem>> Write(const QList<Input>& inputs);

private:
    /// What becomes of an input.
    struct Made {
        std::optional<Problem> problem = {};
        std::optional<ReportForLot> report = {}; ///< where there is a lot
    };

    Made MakeOf(const Input& input) const;
    std::optional<Problem> WriteLot(const Input& input);

    QList<Target> m_targets;
    QString m_lotFile;
    std::unique_ptr<LotWriter> m_lot; ///< remembers which parts stand there; null for none
};

} // namespace ZYN::Tool
