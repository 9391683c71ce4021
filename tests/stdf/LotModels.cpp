#include "LotModels.h"

#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

#include <cmath>

namespace ZYN::LotModels {

namespace {

QSharedPointer<ValidationInterface> MakeValidation(const LimitsSpec& limits)
{
    const QByteArray lower = limits.lowerOperator.toUtf8();
    const QByteArray upper = limits.upperOperator.toUtf8();
    ValidationInterface* const validation =
        limits.real
            ? TestComponentFactory::CreateValidationReal(limits.unit, lower.constData(), upper.constData(),
                                                         limits.lower, limits.upper, -1, -1, -1, -1, -1, -1,
                                                         limits.scale, std::nan(""))
            : TestComponentFactory::CreateValidationInt(limits.unit, lower.constData(), upper.constData(),
                                                        int(limits.lower), int(limits.upper), -1, -1, -1, -1,
                                                        -1, -1);
    return QSharedPointer<ValidationInterface>(validation);
}

/// Adds a component's result to the set; the set owns it.
TestResult* AddResult(TestResultSet* set, const QSharedPointer<TestComponent>& component, EN_ZYN_RESULT code)
{
    auto* const result = new TestResult(component);
    result->SetResult(code);
    set->AddResult(result);
    component->SetResult(result);
    return result;
}

void AddMeasurement(const MeasurementSpec& spec, long id, const QSharedPointer<TestStep>& step,
                    TestResultSet* set)
{
    const auto measurement =
        QSharedPointer<TestMeasurement>::create(id, spec.name, spec.kind, step.get(), 0U, -1L);
    measurement->SetIdentString(spec.ident);
    step->AddMeasurement(measurement);
    if (!spec.hasResult)
        return;
    TestResult* const result = AddResult(set, measurement, spec.result);
    if (spec.value.isValid())
        result->SetValue(spec.value);
    if (spec.limits)
        result->SetValidation(MakeValidation(*spec.limits));
}

void AddResultSet(const UnitSpec& unit, UUTTest* test)
{
    const auto program = QSharedPointer<TestProgram>::create(1L, unit.program, 0UL);
    program->SetVersion(unit.version);
    auto* const set = new TestResultSet(program, nullptr);
    AddResult(set, program, unit.result);
    long id = 1;
    for (const GroupSpec& groupSpec : unit.groups) {
        const auto group = QSharedPointer<TestGroup>::create(id++, groupSpec.name, program.get(), 0U, -1L,
                                                             ZYN_GROUP_USER, nullptr);
        program->AddGroup(group);
        for (const StepSpec& stepSpec : groupSpec.steps) {
            const auto step =
                QSharedPointer<TestStep>::create(id++, stepSpec.name, group.get(), 0U, -1L, QString());
            group->AddStep(step);
            for (const MeasurementSpec& spec : stepSpec.measurements)
                AddMeasurement(spec, id++, step, set);
        }
    }
    test->AssignResultSet(set);
}

QSharedPointer<UUTTest> MakeItem(const UnitSpec& unit)
{
    auto test = QSharedPointer<UUTTest>::create(1L, QString());
    const auto uut = QSharedPointer<UnitUnderTest>::create(1L, QString());
    uut->SetIdentString(unit.ident);
    if (!unit.product.isNull())
        uut->SetProductType(QSharedPointer<ProductType>::create(1L, unit.product));
    test->SetUnitUnderTest(uut);
    if (unit.start.isValid())
        test->SetStartTime(unit.start);
    if (unit.stop.isValid())
        test->SetStopTime(unit.stop);
    test->SetResult(unit.result);
    test->SetDuration(unit.seconds);
    if (unit.hasResultSet)
        AddResultSet(unit, test.get());
    return test;
}

} // namespace

QSharedPointer<UUTTest> MakeTest(const UnitSpec& unit)
{
    QSharedPointer<UUTTest> test = MakeItem(unit);
    test->SetProductionLot(QSharedPointer<ProductionLot>::create(1L, unit.lot));
    auto* const session = new ZYNSession;
    session->SetMachineName(unit.machine);
    const auto workSpace = QSharedPointer<WorkSpace>::create(1L, QString());
    workSpace->SetUserList({QSharedPointer<ZYNUser>::create(unit.user)});
    workSpace->Login(0, QString());
    session->SetWorkSpace(workSpace);
    test->SetSession(session);
    for (const UnitSpec& item : unit.items) {
        UnitSpec spec = item;
        spec.program = unit.program;
        spec.version = unit.version;
        test->AddUUTTest(MakeItem(spec));
    }
    return test;
}

UnitSpec SimpleUnit(const QString& ident, int tests)
{
    StepSpec step{QStringLiteral("Supply"), {}};
    for (int number = 1; number <= tests; ++number) {
        LimitsSpec limits{true, QStringLiteral("<="), QStringLiteral("<="), 0.001, 0.5,
                          -3,   MeasurementUnit::Volt};
        step.measurements.append({QString::number(number), QStringLiteral("Rail %1").arg(number),
                                  ZYN_ADDRESS_REAL, 0.0123 * number, limits, ZYN_RESULT_PASSED, true});
    }
    UnitSpec unit;
    unit.ident = ident;
    unit.product = QStringLiteral("Motor board");
    unit.lot = QStringLiteral("LOT-1");
    unit.machine = QStringLiteral("TESTER-3");
    unit.user = QStringLiteral("Anna");
    unit.program = QStringLiteral("motor.tp");
    unit.version = QStringLiteral("1.2");
    unit.start = QDateTime({2024, 5, 17}, {8, 30, 0}, Qt::UTC);
    unit.stop = unit.start.addSecs(12);
    unit.seconds = 12.345;
    unit.groups = {{QStringLiteral("Power"), {step}}};
    return unit;
}

} // namespace ZYN::LotModels
