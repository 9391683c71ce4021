#include "ReportRun.h"

#include "Golden.h"

#include "export/CExportDirectorReport.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <memory>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

QString CopyLogo(const QString& folder)
{
    const QString logo = folder + u"/media/ReportLogo.png"_s;
    QDir(folder).mkpath(u"media"_s);
    QFile::copy(QStringLiteral(ZYN_SOURCE_DIR "/tests/support/ReportLogo.png"), logo);
    return logo;
}

} // namespace

QString ReportFileName(const QString& format)
{
    return u"report."_s + FormatRegistry::ExtensionForFormat(format);
}

ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample, const QString& folder)
{
    ReportRun run;
    const Environment::Override environment(SampleModels::ReportTime(), SampleModels::EngineVersion());
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder(format));
    if (!builder) {
        run.error = u"no builder for "_s + format;
        return run;
    }
    const QString fileName = folder + u'/' + ReportFileName(format);
    if (!builder->OpenFile(fileName)) {
        run.error = u"cannot create "_s + fileName;
        return run;
    }
    if (sample.withLogo)
        builder->SetProperty(u"ReportLogo"_s, CopyLogo(folder));
    if (sample.useScaledData)
        builder->SetUseScaledData(*sample.useScaledData);

    CExportDirectorReport director;
    director.ignoreReportFlag = sample.ignoreReportFlag;
    run.exported = director.ExportUUTTest(sample.test.get(), builder.get());
    const auto* const state = dynamic_cast<const IOutputState*>(builder.get());
    run.complete = state && state->OutputComplete();
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly))
        run.content = file.readAll();
    else
        run.error = u"cannot read "_s + fileName;
    return run;
}

ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample)
{
    const QTemporaryDir folder;
    return ExportSample(format, sample, folder.path());
}

QString CheckReportGolden(const QString& format, const QString& caseName)
{
    const auto sample = SampleModels::MakeReportCase(caseName);
    if (!sample)
        return u"tests/golden/%1 has no sample"_s.arg(caseName);
    const ReportRun run = ExportSample(format, *sample);
    if (!run.error.isEmpty())
        return run.error;
    if (!run.exported || !run.complete)
        return u"the export failed or is incomplete"_s;
    return Golden::Difference(caseName, ReportFileName(format), run.content);
}

QStringList ReportGoldenRows(const QString& format)
{
    return Golden::Rows(SampleModels::ReportCaseNames(), ReportFileName(format));
}

} // namespace ZYN
