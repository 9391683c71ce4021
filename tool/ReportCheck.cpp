#include "ReportCheck.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

namespace ZYN::Tool {

QList<Finding> CheckReport(const QString& path)
{
    CImportServiceReport service;
    service.SetInputFileName(path);
    UUTTest test(0, QString());
    if (!service.Import(&test))
        return {{.text = QStringLiteral("cannot be read")}};
    QList<Finding> findings;
    for (const ImportFinding& finding : service.GetFindings())
        findings.append({.line = finding.line, .column = finding.column, .text = finding.text});
    return findings;
}

} // namespace ZYN::Tool
