#pragma once

#include "files/Inputs.h"
#include "lotfile/LotWriter.h"
#include "terminal/Problem.h"

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// What became of a report.
struct Conversion {
    QString input;
    QString output; ///< file that was written, where there is no problem
    std::optional<Problem> problem;
    std::optional<LotEntry> lot = {}; ///< what a lot took
    QMap<QString, int> without = {};  ///< units that gave no part to the lot, by the reason
    QString beyondAscii = {};         ///< the first such text of the report's parts
};

/// When nothing can be made of any input, for the same reason.
inline QList<Conversion> RefuseAll(const QList<Input>& inputs, const Problem& problem)
{
    QList<Conversion> conversions;
    for (const Input& input : inputs) {
        Conversion& conversion = conversions.emplaceBack();
        conversion.input = input.name;
        conversion.problem = problem;
    }
    return conversions;
}

} // namespace ZYN::Tool
