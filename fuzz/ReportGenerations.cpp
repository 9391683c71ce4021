#include "ReportGenerations.h"

#include "FuzzSupport.h"

#include "kinds/ReportStructure.h"

#include "export/CExportDirectorReport.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QBuffer>

namespace ZYN::Fuzz {

namespace {

// A service lists 1000 and one that says that there are more.
constexpr qsizetype mostFindings = 1001;

void RequireGood(const QList<ImportFinding>& findings)
{
    Require(findings.size() <= mostFindings, "the number of findings has a bound");
    for (const ImportFinding& finding : findings)
        Require(finding.line >= 0 && finding.column >= 0 && !finding.text.isEmpty(),
                "a finding has a text and a place");
}

} // namespace

QByteArray Report(const QString& format, UUTTest& test)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder(format));
    builder->SetDevice(&buffer);
    CExportDirectorReport director;
    Require(director.ExportUUTTest(&test, builder.get()), "a test can be exported", format);
    Require(dynamic_cast<const IOutputState&>(*builder).OutputComplete(), "the output is complete", format);
    return buffer.data();
}

Reading Imported(const QByteArray& document)
{
    static MemoryFile file;
    file.Set(document);
    Reading reading{std::make_unique<UUTTest>(1, QString()), {}};
    CImportServiceReport service;
    service.SetInputFileName(file.Name());
    Require(service.Import(reading.test.get()), "a file that can be opened is imported");
    const QList<ImportFinding> findings = service.GetFindings();
    RequireGood(findings);
    for (const ImportFinding& finding : findings) {
        if (finding.isError)
            reading.errors.append(finding.text);
    }
    return reading;
}

QByteArray RequireStableReport(const QByteArray& report, const QStringList& knownErrors)
{
    for (const ImportFinding& fault : Tool::ReportStructure::Findings(report))
        Require(false, "an own report has the structure of a report", fault.text);
    // Limits of a measurement of another kind are written as the one's own, and so they are read next.
    const bool isBorrowed =
        !knownErrors.filter(QStringLiteral("has no limits, takes those of the one before")).isEmpty();
    const Reading reading = Imported(report);
    for (const QString& error : reading.errors)
        Require(isBorrowed || knownErrors.contains(error), "an own report is read without an error", error);
    const auto next = [](const QByteArray& generation) {
        return Report(QStringLiteral("XML"), *Imported(generation).test);
    };
    const QByteArray second = Report(QStringLiteral("XML"), *reading.test);
    const QByteArray stable = isBorrowed ? next(second) : second;
    const QByteArray after = next(stable);
    Require(after == stable, "a generation is the one before it",
            QString::fromUtf8(stable) + QStringLiteral("\nbecame\n") + QString::fromUtf8(after));
    return second;
}

} // namespace ZYN::Fuzz
