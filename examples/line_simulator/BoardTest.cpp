#include "BoardTest.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>

#include <cmath>

namespace ZYN::Simulation {

namespace {

constexpr long operatorStep = 630;
const char* const operatorComments[] = {
    "", "", "", "flux residue at J3, accepted", "label printed twice", "connector J1 pressed in by hand"};

// Plays a tester: walks the program in its order, measures, and files the results.
class Tester {
public:
    Tester(const Blueprint& blueprint, const QSharedPointer<Station>& station, BoardRun run)
        : m_blueprint(blueprint)
        , m_run(std::move(run))
        , m_program(blueprint.Build())
        , m_results(std::make_unique<TestResultSet>(m_program, station))
    {
        m_results->SetTestIndex(m_run.index);
    }

    BoardOutcome Run()
    {
        TestResult* const result = File(m_program);
        for (qsizetype i = 0; i < m_blueprint.Groups().size(); ++i) {
            const GroupDef& def = m_blueprint.Groups().at(i);
            if (!m_stopped || def.kind == ZYN_GROUP_CLEANUP)
                RunGroup(def, m_program->GetGroupForIndex(int(i)));
        }
        Finish(result, 0);
        if (m_stopped)
            result->SetResult(m_run.fault->stop);
        return {std::move(m_results), double(m_elapsed) / 1000.0, m_firstFailure};
    }

private:
    // A result that starts now; the set owns it.
    TestResult* File(const QSharedPointer<TestComponent>& component)
    {
        auto* const result = new TestResult(component);
        result->SetTime(m_run.start.addMSecs(m_elapsed));
        m_results->AddResult(result);
        return result;
    }

    void Finish(TestResult* result, qint64 startedAt)
    {
        result->SetDuration(double(m_elapsed - startedAt) / 1000.0);
        result->GetComponent()->SetResult(result);
    }

    void RunGroup(const GroupDef& def, const QSharedPointer<TestGroup>& group)
    {
        const qint64 startedAt = m_elapsed;
        TestResult* const result = File(group);
        for (qsizetype i = 0; i < def.parameters.size(); ++i) {
            const ParameterDef& parameter = def.parameters.at(i);
            TestResult* const value = File(group->GetParameterForIndex(int(i)));
            value->SetValue(parameter.type == ZYN_ADDRESS_STRING    ? QVariant(parameter.text)
                            : parameter.type == ZYN_ADDRESS_INTEGER ? QVariant(int(parameter.value))
                                                                    : QVariant(parameter.value));
            Finish(value, m_elapsed);
        }
        for (qsizetype i = 0; i < def.steps.size(); ++i) {
            const StepDef& step = def.steps.at(i);
            if (step.enabled && (!m_stopped || def.kind == ZYN_GROUP_CLEANUP))
                RunStep(step, group->GetStepForIndex(int(i)));
        }
        Finish(result, startedAt);
    }

    void RunStep(const StepDef& def, const QSharedPointer<TestStep>& step)
    {
        const qint64 startedAt = m_elapsed;
        TestResult* const result = File(step);
        const bool stops = m_run.fault && m_run.fault->stoppedAtStep == def.id;
        if (stops) {
            Stop(step);
            result->SetResult(m_run.fault->stop);
        } else {
            for (qsizetype i = 0; i < def.measurements.size(); ++i)
                Measure(def, def.measurements.at(i), step->GetMeasurementForIndex(int(i)));
        }
        Finish(result, startedAt);
    }

    // The test ends in this step: its first measurement has no value, the others are not reached.
    void Stop(const QSharedPointer<TestStep>& step)
    {
        const qint64 startedAt = m_elapsed;
        m_stopped = true;
        m_elapsed += 2000;
        TestResult* const result = File(step->GetMeasurementForIndex(0));
        result->SetValidation(step->GetMeasurementForIndex(0)->GetValidationCtrl()->GetValidation());
        result->SetResult(m_run.fault->stop);
        result->SetComment(QLatin1String(m_run.fault->stopComment));
        m_firstFailure = result->GetComment();
        Finish(result, startedAt);
    }

    void Measure(const StepDef& step, const MeasurementDef& def,
                 const QSharedPointer<TestMeasurement>& measurement)
    {
        const qint64 startedAt = m_elapsed;
        TestResult* const result = File(measurement);
        m_elapsed += def.milliseconds + m_run.random.Below(def.milliseconds / 8 + 1);
        result->SetValidation(measurement->GetValidationCtrl()->GetValidation());
        result->SetValue(Value(step, def));
        result->SetAttribute(def.instrument);
        if (step.id == operatorStep)
            result->SetComment(result->GetValue().toString());
        Finish(result, startedAt);
        if (m_firstFailure.isEmpty() && result->GetResult() < 0)
            m_firstFailure = def.id == 0 ? step.name : step.name + QStringLiteral(": ") + def.name;
    }

    const FaultEffect* EffectOn(const StepDef& step, const MeasurementDef& def) const
    {
        if (!m_run.fault || (m_run.fault->goneOnRetest && m_run.index > 1))
            return nullptr;
        for (const FaultEffect& effect : m_run.fault->effects)
            if (effect.step == step.id && effect.measurement == def.id)
                return &effect;
        return nullptr;
    }

    // Noise grows and shrinks with the value, so that nothing measured is nothing.
    static double Disturbed(const FaultEffect& effect, const MeasurementDef& def, double noise)
    {
        if (!std::isfinite(effect.value))
            return effect.value;
        return effect.value + def.sigma * noise * effect.value / def.nominal;
    }

    QVariant Value(const StepDef& step, const MeasurementDef& def)
    {
        const FaultEffect* const effect = EffectOn(step, def);
        const double noise = m_run.random.Normal(); // drawn in any case: a fault changes nothing elsewhere
        switch (def.kind) {
        case ValueKind::Text:
            if (step.id == operatorStep)
                return QLatin1String(operatorComments[m_run.random.Below(std::size(operatorComments))]);
            return effect ? QString(QLatin1String(effect->text)) : def.text;
        case ValueKind::Real:
            return Resolved(effect ? Disturbed(*effect, def, noise)
                                   : def.nominal + def.drift * m_run.warmth + def.sigma * noise,
                            def.digits);
        case ValueKind::Integer:
        case ValueKind::Bits:
        case ValueKind::Check:
            break;
        }
        return int(effect ? effect->value : def.nominal);
    }

    const Blueprint& m_blueprint;
    BoardRun m_run;
    QSharedPointer<TestProgram> m_program;
    std::unique_ptr<TestResultSet> m_results;
    qint64 m_elapsed = 0; // milliseconds since the start of the run
    bool m_stopped = false;
    QString m_firstFailure;
};

} // namespace

BoardOutcome TestBoard(const Blueprint& blueprint, const QSharedPointer<Station>& station, BoardRun run)
{
    return Tester(blueprint, station, std::move(run)).Run();
}

} // namespace ZYN::Simulation
