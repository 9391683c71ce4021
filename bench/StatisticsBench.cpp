/// Statistics of a lot of units with 1000 measurements each. The floor is one pass over the values; what
/// counts is that the cost of a value stays the same however large the lot is.

#include "Comparison.h"
#include "LoadModel.h"

#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QTemporaryDir>

#include <vector>

using namespace ZYN;

namespace {

constexpr int Measurements = 1000;

/// Units with programs of their own, as read reports have them; enough that no cache holds them all.
const std::vector<QSharedPointer<UUTTest>>& Units()
{
    static const std::vector<QSharedPointer<UUTTest>> units = [] {
        std::vector<QSharedPointer<UUTTest>> made;
        for (int index = 0; index < 16; ++index)
            made.push_back(Bench::MakeLoad(Measurements));
        return made;
    }();
    return units;
}

void Collect(StatisticsCollector& collector, qint64 count)
{
    for (qint64 unit = 0; unit < count; ++unit)
        collector.AddUnit(Units()[size_t(unit) % Units().size()].get());
}

void PassOver(const std::vector<double>& values)
{
    double sum = 0.0;
    for (const double value : values)
        sum += value;
    benchmark::DoNotOptimize(sum);
}

void CollectLot(benchmark::State& state)
{
    Units();
    const qint64 values = state.range(0) * Measurements;
    const std::vector<double> floor(size_t(values), 5.0);
    Bench::Compare(
        state, values,
        [&] {
            StatisticsCollector collector;
            Collect(collector, state.range(0));
        },
        [&] { PassOver(floor); });
}

void Export(benchmark::State& state, const char* format)
{
    StatisticsCollector collector;
    Collect(collector, state.range(0));
    const QTemporaryDir folder;
    const qint64 values = state.range(0) * Measurements;
    const std::vector<double> floor(size_t(values), 5.0);
    Bench::Compare(
        state, values,
        [&] {
            CExportServiceStatistics service;
            service.SetFormat(QLatin1StringView(format));
            service.SetOutputFileName(folder.filePath(QStringLiteral("statistics")));
            if (!service.Export(collector.GetReport()) || !service.OutputComplete())
                state.SkipWithError("the export failed");
        },
        [&] { PassOver(floor); });
}

BENCHMARK(CollectLot)->RangeMultiplier(10)->Range(10, 10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Export, CSV, "CSV")->Arg(10)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Export, XML, "XML")->Arg(10)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
