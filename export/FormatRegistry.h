#pragma once

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {

class IExportBuilder;

/// The table of formats: all that is asked about formats is answered from it.
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
/// The report formats, each once, in the order of lists for people.
QList<ReportFormat> Formats();
/// The formats that a file dialog offers.
QString FileNameFilter();

} // namespace FormatRegistry

} // namespace ZYN
