#include "ReportRun.h"

#include "Files.h"
#include "Golden.h"

#include "export/CExportDirectorReport.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"
#include "stdf/JsonPrinter.h"
#include "stdf/Reader.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <memory>

namespace ZYN {

QString ReportFileName(const QString& format)
{
    return "report." + FormatRegistry::ExtensionForFormat(format);
}

ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample, const QString& folder)
{
    ReportRun run;
    const Environment::Override environment(SampleModels::ReportTime(), SampleModels::EngineVersion());
    const QString fileName = folder + '/' + ReportFileName(format);
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder(format));
    if (!builder || !builder->OpenFile(fileName))
        return run;
    if (sample.withLogo) {
        const QString logo = folder + "/media/ReportLogo.png";
        QDir(folder).mkpath("media");
        QFile::copy(ZYN_SOURCE_DIR "/tests/support/ReportLogo.png", logo);
        builder->SetProperty("ReportLogo", logo);
    }
    if (sample.useScaledData)
        builder->SetUseScaledData(*sample.useScaledData);

    CExportDirectorReport director;
    director.ignoreReportFlag = sample.ignoreReportFlag;
    run.exported = director.ExportUUTTest(sample.test.get(), builder.get());
    run.complete = dynamic_cast<const IOutputState&>(*builder).OutputComplete();
    run.content = Files::Content(fileName);
    return run;
}

ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample)
{
    const QTemporaryDir folder;
    return ExportSample(format, sample, folder.path());
}

namespace {

/// A lot as the independent reader reads it, a record a line; anything else as it is.
QByteArray Readable(const QString& format, QByteArray content)
{
    if (format != "STDF")
        return content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    Stdf::Reader reader(&buffer);
    QByteArray lines;
    for (Stdf::RawRecord raw; reader.Next(raw);)
        lines += Stdf::ToJsonLine(raw, reader.IsBigEndian()) + '\n';
    return lines;
}

QString GoldenName(const QString& format)
{
    return ReportFileName(format) + (format == "STDF" ? ".jsonl" : "");
}

} // namespace

QString CheckReportGolden(const QString& format, const QString& caseName)
{
    const auto sample = SampleModels::MakeReportCase(caseName);
    if (!sample)
        return QString("tests/golden/%1 has no sample").arg(caseName);
    const ReportRun run = ExportSample(format, *sample);
    if (!run.exported || !run.complete)
        return "the export failed or is incomplete";
    return Golden::Difference(caseName, GoldenName(format), Readable(format, run.content));
}

QStringList ReportGoldenRows(const QString& format)
{
    return Golden::Rows(SampleModels::ReportCaseNames(), GoldenName(format));
}

} // namespace ZYN
