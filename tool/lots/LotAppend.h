#pragma once

#include "files/Inputs.h"
#include "lots/Conversion.h"
#include "terminal/Manners.h"

#include <vector>

namespace ZYN {
class UUTTest;
}

namespace ZYN::Tool {

struct LotOptions {
    bool ignoreReportFlag = false;
    bool again = false; ///< add also parts that stand in the lot already
};

/// A report on its way into a lot: its parts, or why it has none to give.
struct ReportForLot {
    QString name; ///< in messages
    std::optional<LotParts> parts = {};
    std::optional<Problem> problem = {};
};
/// Any thread, each model in one.
/// \param lot file, for messages
ReportForLot MakeForLot(UUTTest* test, const QString& name, const QString& lot, const LotOptions& options);
/// Adds reports, with one write for all that belong to the lot.
/// \return what became of each
QList<Conversion> AppendToLot(const std::vector<ReportForLot>& reports, LotWriter& writer);

/// Adds the parts of reports to one STDF lot file, in the order of the inputs; reads them on all cores.
/// A part that does not belong to the lot goes to a file beside it. What fails leaves the lot as it was; the
/// other reports are still added.
QList<Conversion> AppendToLot(const QList<Input>& inputs, const QString& lot, const LotOptions& options,
                              const Manners& manners);
/// The same for the runs of an STDF lot, and with a writer that goes on to the next one.
QList<Conversion> AppendLotToLot(const Input& input, LotWriter& writer, const LotOptions& options);
/// Says which parts went to files beside the lot.
void SayBeside(const QString& lot, const QList<Conversion>& conversions);
/// Says which parts went elsewhere, what was left out or gave no part, and how many parts the lot holds now.
void SayLot(const QString& lot, const QList<Conversion>& conversions);

} // namespace ZYN::Tool
