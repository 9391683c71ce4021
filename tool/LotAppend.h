#pragma once

#include "Command.h"
#include "Inputs.h"

namespace ZYN::Tool {

/// Adds the parts of reports to one STDF lot file, in the order of the inputs; reads them on all cores.
/// A part that does not belong to the lot goes to its failure file, which is said. What fails is added to
/// the problems and leaves the lot as it was; the other reports are still added.
void AppendToLot(const QList<Input>& inputs, const QString& lot, bool ignoreReportFlag,
                 const Manners& manners, QList<Problem>* problems);

} // namespace ZYN::Tool
