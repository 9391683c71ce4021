#pragma once

#include "kinds/ReportConversion.h"
#include "lots/Conversion.h"

#include <QtCore/QList>

namespace ZYN::Tool {

/// The folder for the reports of an STDF lot: "monday/a.stdf.gz" becomes "monday/a".
QString ConvertedLotName(const QString& relative);
/// A report for each run of an STDF lot, in the order of the lot; last what is damaged.
/// \param folder is there
/// \param threads that write at once
QList<Conversion> ConvertLot(const Input& lot, const QString& folder, const ReportConversion& conversion,
                             int threads);

} // namespace ZYN::Tool
