#pragma once

#include "files/Inputs.h"
#include "terminal/Problem.h"

#include <optional>

namespace ZYN {
class UUTTest;
}

namespace ZYN::Tool {

/// How a report is written in another format.
struct ReportConversion {
    QString format;       ///< as the export service knows it
    bool all = false;     ///< also what is marked as not to be reported
    QString logo = {};    ///< file; empty for none
    QString style = {};   ///< style sheet that XML refers to
    bool replace = false; ///< whether it may take the place of an existing file
};

/// What a report's file is called in another format: "lot/a.zyr.gz" becomes "lot/a.csv".
QString ConvertedName(const QString& relative, const QString& format);
/// Writes a test in another format, whole or not at all.
/// \param source what it was read from, for messages
std::optional<Problem> ConvertTest(UUTTest* test, const QString& source, const QString& output,
                                   const ReportConversion& conversion);
/// Reads a report and writes it in another format, whole or not at all.
std::optional<Problem> ConvertReport(const Input& input, const QString& output,
                                     const ReportConversion& conversion);

} // namespace ZYN::Tool
