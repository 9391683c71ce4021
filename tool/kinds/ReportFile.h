#pragma once

#include "terminal/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace ZYN {
class UUTTest;
}

namespace ZYN::Tool {

/// Reads an XML report, also one compressed with gzip; any thread.
/// \param name what to call the file in messages
/// \param problem set when the file is no complete report: what is missing must not go unnoticed
/// \return null with a problem
std::unique_ptr<UUTTest> ReadReport(const QString& path, const QString& name,
                                    std::optional<Problem>* problem);
/// What stands in place of a verdict for a unit of a report that is not complete.
inline QString IncompleteText()
{
    return QStringLiteral("INCOMPLETE");
}
/// The same for who looks at a report without making anything from it.
/// \return what could be read, also with a problem; null when that is nothing
std::unique_ptr<UUTTest> ReadDamagedReport(const QString& path, const QString& name,
                                           std::optional<Problem>* problem);

/// Whether a file that begins so, decompressed, is an XML report.
bool LooksLikeReport(const QByteArray& head);

} // namespace ZYN::Tool
