#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN {

class IExportBuilder;

/// The table of formats: every lookup by name or extension is answered from it.
namespace FormatRegistry {

/// Builder of a report format, owned by the caller; null for an unknown name.
IExportBuilder* CreateReportBuilder(const QString& format);
/// Builder of a statistics format, owned by the caller; null for an unknown name.
IExportBuilder* CreateStatisticsBuilder(const QString& format);
/// Builder of the test plan, owned by the caller; there is one, whatever the name.
IExportBuilder* CreateTestPlanBuilder(const QString& format, bool excludeBinIds);

/// Extension without dot for a format name; empty for an unknown one.
QString ExtensionForFormat(const QString& format);
/// Format for a file name, by the first extension of the fixed search order found anywhere in it.
QString FormatForExtension(const QString& fileName);
bool ValidFormat(const QString& format);

} // namespace FormatRegistry

} // namespace ZYN
