#pragma once

#include "archive/Questions.h"

#include <QtCore/QJsonObject>

namespace ZYN::Tool {

/// What the questions say about a lot in a few lines, for each of its programs: yields, the most frequent
/// first failures, the smallest CPK.
class Summary {
public:
    /// \return none where the archive says why
    static std::optional<Summary> Ask(const Archive& archive);

    QString ToText() const;
    /// An object for each program.
    QList<QJsonObject> ToJson() const;

private:
    struct Program {
        QString name = {};
        YieldRow yield = {};
        std::int64_t firstFailures = 0; ///< of all components
        std::vector<FailureRow> failures = {};
        std::vector<MeasureRow> measures = {};
    };

    std::vector<Program> m_programs;
};

} // namespace ZYN::Tool
