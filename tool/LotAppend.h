#pragma once

#include "Command.h"
#include "Inputs.h"

#include <optional>

namespace ZYN::Tool {

/// What became of a report.
struct Conversion {
    QString input;
    QString output; ///< file that was written, where there is no problem
    std::optional<Problem> problem;
};

/// Adds the parts of reports to one STDF lot file, in the order of the inputs; reads them on all cores.
/// A part that does not belong to the lot goes to its failure file, which is said. What fails leaves the lot
/// as it was; the other reports are still added.
QList<Conversion> AppendToLot(const QList<Input>& inputs, const QString& lot, bool ignoreReportFlag,
                              const Manners& manners);
/// Says which parts went elsewhere, and how many the lot holds now.
void SayLot(const QString& lot, const QList<Conversion>& conversions);

} // namespace ZYN::Tool
