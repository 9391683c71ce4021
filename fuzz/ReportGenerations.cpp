#include "ReportGenerations.h"

#include "FuzzSupport.h"

#include "export/CExportDirectorReport.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"
#include "import/ReportStructure.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QBuffer>

namespace ZYN::Fuzz {

namespace {

constexpr qsizetype mostFindings = 1001;

void RequireGood(const QList<ImportFinding>& findings)
{
    Require(findings.size() <= mostFindings, "the number of findings has a bound");
    for (const ImportFinding& finding : findings)
        Require(finding.line >= 0 && finding.column >= 0 && !finding.text.isEmpty(),
                "a finding has a text and a place");
}

std::unique_ptr<UUTTest> Imported(const QByteArray& document, QList<ImportFinding>& findings)
{
    static MemoryFile file;
    file.Set(document);
    auto test = std::make_unique<UUTTest>(1, QString());
    CImportServiceReport service;
    service.SetInputFileName(file.Name());
    Require(service.Import(test.get()), "a file that can be opened is imported");
    findings = service.GetFindings();
    RequireGood(findings);
    return test;
}

} // namespace

QByteArray Report(const QString& format, UUTTest& test)
{
    QBuffer buffer;
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder(format));
    builder->SetDevice(&buffer);
    CExportDirectorReport director;
    Require(director.ExportUUTTest(&test, builder.get()), "a test can be exported", format);
    Require(dynamic_cast<const IOutputState&>(*builder).OutputComplete(), "the output is complete", format);
    return buffer.data();
}

std::unique_ptr<UUTTest> Imported(const QByteArray& document)
{
    const QList<ImportFinding> faults = ReportStructure::Faults(document);
    RequireGood(faults);
    QList<ImportFinding> findings;
    return Imported(document, findings);
}

void RequireStableReport(const QByteArray& report)
{
    for (const ImportFinding& fault : ReportStructure::Faults(report))
        Require(false, "an own report has the structure of a report", fault.text);
    QList<ImportFinding> findings;
    const QByteArray second = Report(QStringLiteral("XML"), *Imported(report, findings));
    for (const ImportFinding& finding : findings)
        Require(!finding.isError, "an own report is read without an error", finding.text);
    const QByteArray third = Report(QStringLiteral("XML"), *Imported(second, findings));
    Require(third == second, "the second generation is the third",
            QString::fromUtf8(second) + QStringLiteral("\nbecame\n") + QString::fromUtf8(third));
}

} // namespace ZYN::Fuzz
