// A test with any content, written in every format. What has a reader of its own is read back.

#include "FuzzSupport.h"
#include "FuzzedModel.h"
#include "ReportContents.h"
#include "ReportGenerations.h"
#include "ReportRunsCheck.h"

#include "stdf/LotFiles.h"

#include "export/CExportDirectorReport.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtGui/QGuiApplication>

using namespace ZYN;
using namespace ZYN::Fuzz;
using namespace Qt::StringLiterals;

namespace {

void RequireSame(const QStringList& expected, const QStringList& actual, const char* what)
{
    Require(actual == expected, what, expected.join(u'\n') + u"\nbecame\n"_s + actual.join(u'\n'));
}

/// A measurement without limits takes those of the one before, and is a number unless the one before was a
/// text; a unit with digits has whole numbers only. This is told as an error.
QStringList LossesToldAsErrors(const QByteArray& report)
{
    static const QRegularExpression losses(
        u"has no limits, takes those of the one before|^value '.*' is not a number|^limits that are no numbers"_s,
        QRegularExpression::DotMatchesEverythingOption);
    return Imported(report).errors.filter(losses);
}

void CheckLotFile(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const LotFiles::Contents contents = LotFiles::Read(&buffer);
    Require(contents.Faults().isEmpty(), "a lot file is good", contents.Faults());
}

/// A layout takes as long as a hundred other reports.
void WritePdf(UUTTest& test)
{
    // Qt tells what it makes of a name that is a style sheet.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 1;
    static char name[] = "RoundTripFuzz";
    static char* arguments[] = {name, nullptr};
    static const QGuiApplication application(count, arguments);
    static const MemoryFile file;
    CExportServiceReport service;
    service.SetFormat(u"PDF"_s);
    service.SetOutputFileName(file.Name());
    Require(service.Export(&test) && service.OutputComplete(), "there is a PDF report",
            service.GetErrorText());
    qInstallMessageHandler(handler);
}

void WriteStatistics(const UUTTest& test, const QString& format)
{
    StatisticsCollector collector;
    collector.AddUnit(&test);
    collector.AddUnit(&test);
    QBuffer buffer;
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateStatisticsBuilder(format));
    builder->SetDevice(&buffer);
    Require(CExportDirectorBase::ExportStatistics(collector.GetReport(), builder.get()) &&
                dynamic_cast<const IOutputState&>(*builder).OutputComplete(),
            "statistics can be written", format);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    const bool withPdf = bytes.ConsumeIntegral<quint8>() == 'P';
    const QSharedPointer<UUTTest> test = FuzzedModel(bytes).Test();

    const QByteArray report = Report(u"XML"_s, *test);
    const QList<ProgramContents> programs = ProgramsOfXml(report);
    const QByteArray second = RequireStableReport(report, LossesToldAsErrors(report));
    RequireSame(Components(programs), Components(ProgramsOfXml(second)), "no component is lost");
    const QMap<int, QStringList> numbers = NumbersOfXml(second);
    for (const auto& [place, texts] : NumbersOfXml(report).asKeyValueRange())
        RequireSame(texts, numbers.value(place), "no digit is lost");

    CheckReportRuns(report, true);

    const bool isPanel = !test->GetUUTTests().isEmpty();
    RequireSame(Components(isPanel ? LastOfEachItem(programs, test->GetUUTTests().size()) : programs),
                Components(ProgramsOfJson(Report(u"JSON"_s, *test))),
                "the JSON report has the same components");

    for (const QString& format : {u"CSV"_s, u"TXT"_s, u"HTML"_s})
        Require(!Report(format, *test).isEmpty() || programs.isEmpty(), "there is a report", format);
    if (const QByteArray lot = Report(u"STDF"_s, *test); !programs.isEmpty())
        CheckLotFile(lot);
    for (const QString& format : {u"CSV"_s, u"XML"_s})
        WriteStatistics(*test, format);
    if (withPdf)
        WritePdf(*test);
    return 0;
}
