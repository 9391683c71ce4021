#pragma once

#include "archive/Questions.h"

namespace ZYN::Page {

/// All that a part of a page tells about one lot of one product.
struct LotAnswers {
    QString product, lot;
    std::vector<YieldRow> yield; ///< a row for each program
    std::vector<YieldRow> overTime;
    std::vector<YieldRow> byStation;
    std::vector<YieldRow> byPosition;
    std::vector<YieldRow> byBin;
    std::vector<FailureRow> failures;
    std::vector<MeasureRow> measures; ///< with their values
    std::vector<UnitRow> failedUnits;
    std::vector<UnitRow> retestedUnits;
    QStringList notes;
};

/// Asks for all of it. \return none where a question has no answer
std::optional<LotAnswers> AskLot(const Archive& archive, const RunFilter& filter, const QString& product,
                                 const QString& lot);

} // namespace ZYN::Page
