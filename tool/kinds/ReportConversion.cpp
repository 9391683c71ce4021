#include "kinds/ReportConversion.h"

#include "files/SafeOutput.h"
#include "kinds/ReportFile.h"
#include "terminal/Texts.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace ZYN::Tool {

QString ConvertedName(const QString& relative, const QString& format)
{
    const bool isCompressed = relative.endsWith(QLatin1String(".gz"), Qt::CaseInsensitive);
    const QFileInfo name(relative.chopped(isCompressed ? 3 : 0));
    return QDir::cleanPath(name.path() + QLatin1Char('/') + name.completeBaseName() + QLatin1Char('.') +
                           CExportServiceReport::ExtensionForFormat(format));
}

namespace {

std::optional<Problem> Write(UUTTest* test, const QString& source, const ReportConversion& conversion,
                             SafeOutput& output)
{
    CExportServiceReport service;
    if (!service.SetFormat(conversion.format))
        return Problem{source, 0, Texts::tr("this build cannot write %1").arg(conversion.format), {}};
    service.SetOutputFileName(output.TemporaryName());
    service.SetIgnoreReportFlag(conversion.all);
    if (!conversion.logo.isEmpty())
        service.SetReportLogoImage(QFileInfo(conversion.logo).absoluteFilePath());
    if (!conversion.style.isEmpty())
        service.SetXMLStyle(conversion.style);
    const bool isComplete = service.Export(test) && service.OutputComplete();
    if (!isComplete && conversion.format == QLatin1String("PDF") && !service.GetOutputError().isEmpty())
        return Problem{source, 0, Texts::tr("would take too long as PDF: %1").arg(service.GetOutputError()),
                       Texts::tr("convert it to HTML")};
    if (!isComplete)
        return output.WriteProblem();
    return output.Commit();
}

} // namespace

std::optional<Problem> ConvertTest(UUTTest* test, const QString& source, const QString& outputName,
                                   const ReportConversion& conversion)
{
    SafeOutput output(outputName, conversion.replace);
    const std::optional<Problem> refusal = output.Refusal();
    return refusal ? refusal : Write(test, source, conversion, output);
}

std::optional<Problem> ConvertReport(const Input& input, const QString& outputName,
                                     const ReportConversion& conversion)
{
    SafeOutput output(outputName, conversion.replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return refusal;
    std::optional<Problem> problem;
    const std::unique_ptr<UUTTest> test = ReadReport(input.path, input.name, &problem);
    return problem ? problem : Write(test.get(), input.name, conversion, output);
}

} // namespace ZYN::Tool
