// Reports to runs, against their import, which fills the model: the reports of a simulated lot, one by one.

#include "Comparison.h"

#include "examples/line_simulator/Line.h"
#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderXML.h"
#include "runs/ReportRuns.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <string>
#include <vector>

using namespace ZYN;

namespace {

void Write(UUTTest* test, const QString& fileName)
{
    CReportBuilderXML builder;
    CExportDirectorReport director;
    if (!builder.OpenFile(fileName) || !director.ExportUUTTest(test, &builder))
        qFatal("no report");
}

void ReportsToRuns(benchmark::State& state)
{
    constexpr int panels = 100;
    constexpr double bar = 65.0 / 150.0; // MB/s of the import, and those that are wanted
    constexpr double megabyte = 1e6;
    const QTemporaryDir folder;
    const Simulation::Line line{{}};
    std::vector<QString> files;
    qint64 bytes = 0;
    for (int panel = 1; panel <= panels; ++panel) {
        files.push_back(folder.filePath(QString::number(panel)));
        Write(line.MakePanel(panel).get(), files.back());
        bytes += QFileInfo(files.back()).size();
    }
    ReportRuns reader;
    Bench::Compare(
        state, panels,
        [&] {
            std::vector<Run> runs;
            for (const QString& file : files) {
                runs.clear();
                if (reader.ReadFile(file.toStdString(), &runs) || runs.empty())
                    qFatal("not read");
            }
        },
        [&] {
            for (const QString& file : files) {
                UUTTest test(0, QString());
                CImportServiceReport service;
                service.SetInputFileName(file);
                if (!service.Import(&test) || test.GetUUTTests().isEmpty())
                    qFatal("not imported");
            }
        },
        bar);
    state.counters["MB"] = double(bytes) / megabyte;
}

} // namespace

BENCHMARK(ReportsToRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
