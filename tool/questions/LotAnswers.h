#pragma once

#include "Inputs.h"

#include "archive/Questions.h"

#include <QtCore/QJsonObject>

#include <optional>

namespace ZYN::Tool {

/// What the questions say about a lot, for each of its programs: yields, the most frequent first failures,
/// the smallest CPK.
class LotAnswers {
public:
    /// Reads the reports and asks. What cannot be read is left out: who reads them as well tells about it.
    /// \return none with a problem of the database
    static std::optional<LotAnswers> Ask(const QList<Input>& inputs, Problem* problem);

    QString ToText() const;
    QList<QJsonObject> ToJson() const;

private:
    struct Program {
        YieldRow yield;
        QString name;
        std::vector<FailureRow> failures;
        std::vector<MeasureRow> measures;
    };

    std::vector<Program> m_programs;
};

} // namespace ZYN::Tool
