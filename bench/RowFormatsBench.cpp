// CSV, text and HTML reports against their floor: the same lines from constant strings through a bare
// QTextStream with Qt::endl into a file of the same kind.

#include "Comparison.h"
#include "LoadModel.h"

#include "export/CExportDirectorReport.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"

#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>

#include <memory>

using namespace ZYN;

namespace {

void Export(const QString& format, UUTTest* test, const QString& fileName)
{
    const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder(format));
    CExportDirectorReport director;
    if (!builder->OpenFile(fileName) || !director.ExportUUTTest(test, builder.get()))
        qFatal("no report");
}

QStringList Lines(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no report to read");
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast();
    return lines;
}

void WriteLines(const QStringList& lines, int times, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        qFatal("no file");
    QTextStream stream(&file);
    for (int turn = 0; turn < times; ++turn) {
        for (const QString& line : lines)
            stream << line << Qt::endl;
    }
}

void RowFormat(benchmark::State& state, const char* name)
{
    constexpr int sample = 1000;
    const QString format = QString::fromLatin1(name);
    const int measurements = int(state.range(0));
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("report"));

    Export(format, Bench::MakeLoad(sample).get(), fileName);
    const QStringList lines = Lines(fileName);
    const auto load = Bench::MakeLoad(measurements);
    Bench::Compare(
        state, measurements, [&] { Export(format, load.get(), fileName); },
        [&] { WriteLines(lines, measurements / sample, folder.filePath(QStringLiteral("floor"))); }, 2.0);
}

} // namespace

#define ZYN_ROW_FORMAT(name)                                                                                 \
    BENCHMARK_CAPTURE(RowFormat, name, #name)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);  \
    BENCHMARK_CAPTURE(RowFormat, name, #name)                                                                \
        ->Arg(1'000'000)                                                                                     \
        ->Iterations(2)                                                                                      \
        ->UseManualTime()                                                                                    \
        ->Unit(benchmark::kMillisecond)

ZYN_ROW_FORMAT(CSV);
ZYN_ROW_FORMAT(TXT);
ZYN_ROW_FORMAT(HTML);

BENCHMARK_MAIN();
