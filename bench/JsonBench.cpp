// The JSON report against its floor: the same tree built from constants and written by QJsonDocument.

#include "Comparison.h"
#include "LoadModel.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderJSON.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

using namespace ZYN;

namespace {

void Export(UUTTest* test, const QString& fileName)
{
    CReportBuilderJSON builder;
    CExportDirectorReport director;
    if (!builder.OpenFile(fileName) || !director.ExportUUTTest(test, &builder))
        qFatal("no report");
}

QJsonObject Header(const QString& name)
{
    return {{QStringLiteral("Name"), name},
            {QStringLiteral("ID"), 7},
            {QStringLiteral("Type"), 8},
            {QStringLiteral("Ident"), QStringLiteral("7")}};
}

QJsonObject Result()
{
    return {{QStringLiteral("Duration"), 0.0125},
            {QStringLiteral("Attribute"), QString()},
            {QStringLiteral("Comment"), QString()},
            {QStringLiteral("Code"), 1},
            {QStringLiteral("Result"), QStringLiteral("PASS")},
            {QStringLiteral("DataType"), QStringLiteral("Real")}};
}

QJsonObject Measurement(const QString& name)
{
    QJsonObject result = Result();
    result.insert(QStringLiteral("Value"), 0.0123456789);
    result.insert(QStringLiteral("Unit"), QStringLiteral("V"));
    return {{QStringLiteral("TestMeasurement"), Header(name)},
            {QStringLiteral("Limits"),
             QJsonObject{{QStringLiteral("Lower"), 0.01}, {QStringLiteral("Upper"), 0.015}}},
            {QStringLiteral("Result"), result}};
}

/// As the load's report: steps of ten measurements.
void WriteConstants(int measurements, const QString& fileName)
{
    constexpr int perStep = 10;
    const QString name = QStringLiteral("Measurement");
    QJsonArray steps;
    for (int step = 0; step < measurements / perStep; ++step) {
        QJsonArray values;
        for (int place = 0; place < perStep; ++place)
            values.append(Measurement(name));
        steps.append(QJsonObject{{QStringLiteral("TestStep"), Header(name)},
                                 {QStringLiteral("Result"), Result()},
                                 {QStringLiteral("Values"), values}});
    }
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no file");
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("Steps"), steps}}).toJson());
}

void JsonReport(benchmark::State& state)
{
    const int measurements = int(state.range(0));
    const QTemporaryDir folder;
    const auto load = Bench::MakeLoad(measurements);
    Bench::Compare(
        state, measurements, [&] { Export(load.get(), folder.filePath(QStringLiteral("report"))); },
        [&] { WriteConstants(measurements, folder.filePath(QStringLiteral("floor"))); }, 1.5);
}

} // namespace

BENCHMARK(JsonReport)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(JsonReport)->Arg(1'000'000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
