#include "LoadModel.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>

#include <cmath>
#include <limits>

namespace ZYN::Bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int stepsPerGroup = 100;
constexpr int measurementsPerStep = 10;

QSharedPointer<ValidationInterface> Limits()
{
    return QSharedPointer<ValidationInterface>(TestComponentFactory::CreateValidationReal(
        MeasurementUnit::Volt, "<=", "<=", 0.010, 0.015, -1, -1, -1, -1, -1, -1, -3,
        std::numeric_limits<double>::quiet_NaN()));
}

TestResult* AddResult(TestResultSet* set, const QSharedPointer<TestComponent>& component)
{
    auto* const result = new TestResult(component);
    result->SetDuration(0.0125);
    result->SetTimeString(u"2024-03-05T10:15:00+01:00"_s);
    set->AddResult(result);
    component->SetResult(result);
    return result;
}

void AddMeasurement(TestResultSet* set, TestStep* step, int index)
{
    const QSharedPointer<TestMeasurement> measurement(new TestMeasurement(
        index + 1, u"Voltage at node %1"_s.arg(index), ZYN_ADDRESS_REAL, step, 0, index + 1));
    measurement->GetValidationCtrl()->SetValidation(Limits());
    step->AddMeasurement(measurement);
    TestResult* const result = AddResult(set, measurement);
    // As many digits as a real instrument gives.
    result->SetValue(std::round((0.012 + 0.0007 * std::sin(double(step->id + index))) * 1e7) / 1e7);
    result->SetValidation(measurement->GetValidationCtrl()->GetValidation());
    result->SetResult(ZYN_RESULT_PASSED);
}

} // namespace

QSharedPointer<UUTTest> MakeLoad(int measurements)
{
    const QSharedPointer<TestProgram> program(new TestProgram(1, u"Load"_s, 0));
    auto* const set = new TestResultSet(program, {});
    AddResult(set, program)->SetResult(ZYN_RESULT_PASSED);
    QSharedPointer<TestGroup> group;
    const int steps = (measurements + measurementsPerStep - 1) / measurementsPerStep;
    for (int number = 0; number < steps; ++number) {
        if (number % stepsPerGroup == 0) {
            const long id = 10 + number / stepsPerGroup;
            group.reset(
                new TestGroup(id, u"Group %1"_s.arg(id), program.get(), 0, id, ZYN_GROUP_USER, nullptr));
            program->AddGroup(group);
            AddResult(set, group)->SetResult(ZYN_RESULT_PASSED);
        }
        const QSharedPointer<TestStep> step(
            new TestStep(1000 + number, u"Step %1"_s.arg(number), group.get(), 0, number + 1, QString()));
        group->AddStep(step);
        AddResult(set, step)->SetResult(ZYN_RESULT_PASSED);
        for (int index = 0; index < measurementsPerStep; ++index)
            AddMeasurement(set, step.get(), index);
    }

    const QSharedPointer<UUTTest> test(new UUTTest(1, u"Load"_s));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(1, u"Unit"_s));
    unit->SetSerialNo(u"SN1"_s);
    test->SetUnitUnderTest(unit);
    test->SetResult(ZYN_RESULT_PASSED);
    test->AssignResultSet(set);
    return test;
}

} // namespace ZYN::Bench
