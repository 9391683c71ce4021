#pragma once

#include <QtCore/QByteArray>

namespace ZYN::Fuzz {

/// Runs from the bytes of a report are those from the model that the import makes of it, and what one refuses
/// is an error to the other.
/// \param isOwn whether the report was written by this library
void CheckReportRuns(const QByteArray& report, bool isOwn);

} // namespace ZYN::Fuzz
