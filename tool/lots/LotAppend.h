#pragma once

#include "files/Inputs.h"
#include "lots/Conversion.h"
#include "terminal/Manners.h"

namespace ZYN::Tool {

struct LotOptions {
    bool ignoreReportFlag = false;
    bool again = false; ///< add also parts that stand in the lot already
};

/// Adds the parts of reports to one STDF lot file, in the order of the inputs; reads them on all cores.
/// A part that does not belong to the lot goes to a file beside it. What fails leaves the lot as it was; the
/// other reports are still added.
QList<Conversion> AppendToLot(const QList<Input>& inputs, const QString& lot, const LotOptions& options,
                              const Manners& manners);
/// The same for one input, a report or an STDF lot, and with a writer that goes on to the next one.
QList<Conversion> AppendToLot(const Input& input, LotWriter& writer, const LotOptions& options);
/// Says which parts went to files beside the lot.
void SayBeside(const QString& lot, const QList<Conversion>& conversions);
/// Says which parts went elsewhere, what was left out or gave no part, and how many parts the lot holds now.
void SayLot(const QString& lot, const QList<Conversion>& conversions);

} // namespace ZYN::Tool
