#pragma once

#include "questions/Answer.h"
#include "terminal/Problem.h"

namespace ZYN::Tool {

/// An answer as a file shows it.
struct AnswerTable {
    QString name; ///< of the question
    const Answer& answer;
    const AnswerRow& empty; ///< tells the titles of an answer without rows
};

/// Whether a file is one that an answer can be written into, by its extension.
bool IsAnswerFile(const QString& path);

/// Writes a table for other programs: a line of titles, then the rows. ".csv" is text, cells separated by
/// semicolons; ".xlsx" a workbook of typed cells. A list within a row is one cell.
/// \param path of a file of which `IsAnswerFile` holds
/// \param replace whether it may take the place of an existing file
std::optional<Problem> WriteAnswer(const AnswerTable& table, const QString& path, bool replace);

} // namespace ZYN::Tool
