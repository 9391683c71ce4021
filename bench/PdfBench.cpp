// The PDF report against its floor: a bare QTextDocument that prints the same HTML.

#include "Comparison.h"
#include "LoadModel.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderHTML.h"
#include "report/CReportBuilderPDF.h"

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>
#include <QtPrintSupport/QPrinter>

using namespace ZYN;

namespace {

void Export(IExportBuilder& builder, UUTTest* test)
{
    CExportDirectorReport director;
    if (!director.ExportUUTTest(test, &builder))
        qFatal("no report");
}

QString Html(UUTTest* test)
{
    QBuffer buffer;
    CReportBuilderHTML builder;
    builder.SetDevice(&buffer);
    Export(builder, test);
    return QString::fromUtf8(buffer.data());
}

void Print(const QString& html, const QString& fileName)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    QTextDocument document;
    document.setHtml(html);
    document.print(&printer);
}

void PdfReport(benchmark::State& state)
{
    const int measurements = int(state.range(0));
    const QTemporaryDir folder;
    const auto load = Bench::MakeLoad(measurements);
    const QString html = Html(load.get());
    Bench::Compare(
        state, measurements,
        [&] {
            CReportBuilderPDF builder;
            builder.OpenFile(folder.filePath(QStringLiteral("report.pdf")));
            Export(builder, load.get());
        },
        [&] { Print(html, folder.filePath(QStringLiteral("floor.pdf"))); }, 1.1);
}

} // namespace

BENCHMARK(PdfReport)->Arg(100)->Arg(1'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(PdfReport)->Arg(10'000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argumentCount, char** arguments)
{
    const QGuiApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
