/// Recording a run beside filling the model by hand, call by call, onto the same program.

#include "Comparison.h"
#include "LoadModel.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/RunRecorder.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>

using namespace ZYN;

namespace {

QSharedPointer<TestProgram> MakeProgram(int measurements)
{
    const auto load = Bench::MakeLoad(measurements);
    return load->GetResultSets().constFirst()->GetTestProgram();
}

template <typename Each>
void ForEachStep(const TestProgram& program, Each each)
{
    for (int g = 0; g < program.GetGroupCount(); ++g) {
        const auto& group = program.GetGroupForIndex(g);
        for (int s = 0; s < group->GetStepCount(); ++s)
            each(group, group->GetStepForIndex(s));
    }
}

QSharedPointer<UUTTest> Recorded(const QSharedPointer<TestProgram>& program)
{
    RunRecorder recorder(nullptr, program);
    ForEachStep(*program, [&](const auto&, const auto& step) {
        for (int m = 0; m < step->GetMeasurementCount(); ++m)
            recorder.Measure(step->GetMeasurementForIndex(m), 5.0);
    });
    return recorder.Finish();
}

/// The calls that a careful tester makes.
class ByHand {
public:
    explicit ByHand(const QSharedPointer<TestProgram>& program)
        : m_results(new TestResultSet(program, nullptr))
        , m_start(QDateTime::currentDateTime())
    {
        m_clock.start();
        TestResult* const whole = Begin(program);
        TestGroup* last = nullptr;
        ForEachStep(*program, [&](const auto& group, const auto& step) {
            if (group != last)
                Begin(group);
            last = group.data();
            TestResult* const result = Begin(step);
            const qint64 begun = m_clock.nsecsElapsed();
            for (int m = 0; m < step->GetMeasurementCount(); ++m)
                Measure(step->GetMeasurementForIndex(m));
            result->SetDuration(double(m_clock.nsecsElapsed() - begun) / 1e9);
            step->SetResult(result);
        });
        program->SetResult(whole);
        m_test->AssignResultSet(m_results);
    }

    QSharedPointer<UUTTest> Test() const { return m_test; }

private:
    TestResult* Begin(const QSharedPointer<TestComponent>& component)
    {
        auto* const result = new TestResult(component);
        result->SetTime(m_start.addMSecs(m_clock.elapsed()));
        m_results->AddResult(result);
        return result;
    }

    void Measure(const QSharedPointer<TestMeasurement>& measurement)
    {
        const qint64 begun = m_clock.nsecsElapsed();
        TestResult* const result = Begin(measurement);
        result->SetValidation(measurement->GetValidationCtrl()->GetValidation());
        result->SetValue(5.0);
        result->SetDuration(double(m_clock.nsecsElapsed() - begun) / 1e9);
        measurement->SetResult(result);
    }

    QSharedPointer<UUTTest> m_test = QSharedPointer<UUTTest>::create(0L, QString());
    TestResultSet* m_results;
    QDateTime m_start;
    QElapsedTimer m_clock;
};

void Record(benchmark::State& state)
{
    const auto program = MakeProgram(int(state.range(0)));
    Bench::Compare(
        state, state.range(0), [&] { benchmark::DoNotOptimize(Recorded(program)); },
        [&] { benchmark::DoNotOptimize(ByHand(program).Test()); }, 1.1);
}

BENCHMARK(Record)->Arg(1000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
