#pragma once

#include "archive/Questions.h"

#include <memory>

namespace ZYN::Page {

/// All that a part of a page tells about one lot of one product.
struct LotAnswers {
    QString product, lot;
    RunSpan span;
    std::vector<YieldRow> yield; ///< a row for each program
    std::vector<YieldRow> byProgram;
    std::vector<YieldRow> overTime;
    std::vector<YieldRow> byStation;
    std::vector<YieldRow> byPosition;
    std::vector<YieldRow> bySite;
    std::vector<YieldRow> byBin;
    std::vector<DieRow> dies;
    std::vector<FailureRow> failures;
    std::shared_ptr<const MeasureAnswer> measures;
    std::vector<UnitRow> failedUnits;
    std::vector<UnitRow> retestedUnits;
    QStringList notes;

    const std::vector<MeasureRow>& Rows() const { return measures->GetRows(); }
};

/// A product's lot that chosen runs are of.
struct LotName {
    QString product, lot;
    bool operator==(const LotName&) const = default;
};

/// The lots of the chosen runs, each once. \return none where the archive has no answer
std::optional<std::vector<LotName>> AskLots(const Archive& archive, const RunFilter& filter);

/// Asks for all of it. \return none where a question has no answer
std::optional<LotAnswers> AskLot(const Archive& archive, const RunFilter& filter, const LotName& name);

} // namespace ZYN::Page
