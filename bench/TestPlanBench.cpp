/// Test plans: the cost of a component must not grow with the plan.

#include "Comparison.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <memory>

using namespace ZYN;

namespace {

constexpr qint64 StepSize = 100;

QSharedPointer<TestProgram> MakeProgram(qint64 measurements)
{
    const auto program = QSharedPointer<TestProgram>::create(1, QStringLiteral("Board"), 0UL);
    const auto group = QSharedPointer<TestGroup>::create(2, QStringLiteral("Group"), program.get(), 0U, -1L,
                                                         ZYN_GROUP_USER, nullptr);
    program->AddGroup(group);
    QSharedPointer<TestStep> step;
    for (qint64 index = 0; index < measurements; ++index) {
        if (index % StepSize == 0) {
            step = QSharedPointer<TestStep>::create(long(10000000 + index), QStringLiteral("Step"),
                                                    group.get(), 0U, -1L, QString());
            group->AddStep(step);
        }
        const auto measurement = QSharedPointer<TestMeasurement>::create(
            long(100 + index), QStringLiteral("Voltage"), ZYN_ADDRESS_REAL, step.get(), 0U, -1L);
        measurement->GetValidationCtrl()->SetValidation(
            QSharedPointer<ValidationInterface>(TestComponentFactory::CreateValidationReal(
                1, "<=", "<=", 4.75, 5.25, 1, 2, 3, 4, 5, 6, QVariant(-3), 5.0)));
        step->AddMeasurement(measurement);
    }
    return program;
}

bool Write(TestProgram* program, const QString& fileName)
{
    CExportServiceTestPlan service(false);
    service.SetOutputFileName(fileName);
    return service.Export(program) && service.OutputComplete();
}

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Floor of reading: a bare pass over the same bytes.
void PassOver(const QByteArray& plan)
{
    QXmlStreamReader reader(plan);
    while (!reader.atEnd())
        reader.readNext();
    benchmark::DoNotOptimize(reader.error());
}

/// Floor of writing: the same elements from a bare reader through a bare writer.
void CopyElements(const QByteArray& plan, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    QXmlStreamReader reader(plan);
    QXmlStreamWriter writer(&file);
    while (!reader.atEnd()) {
        reader.readNext();
        writer.writeCurrentToken(reader);
    }
}

void WritePlan(benchmark::State& state)
{
    const QTemporaryDir folder;
    const auto program = MakeProgram(state.range(0));
    const QString fileName = folder.filePath(QStringLiteral("plan.tpl"));
    Write(program.get(), fileName);
    const QByteArray plan = Content(fileName);
    Bench::Compare(
        state, state.range(0),
        [&] {
            if (!Write(program.get(), fileName))
                state.SkipWithError("the export failed");
        },
        [&] { CopyElements(plan, folder.filePath(QStringLiteral("floor.tpl"))); });
}

void ReadPlan(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("plan.tpl"));
    Write(MakeProgram(state.range(0)).get(), fileName);
    const QByteArray bytes = Content(fileName);
    Bench::Compare(
        state, state.range(0),
        [&] {
            const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(fileName));
            if (!plan)
                state.SkipWithError("reading failed");
        },
        [&] { PassOver(bytes); });
}

BENCHMARK(WritePlan)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadPlan)->RangeMultiplier(10)->Range(1000, 100000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
