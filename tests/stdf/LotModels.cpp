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

using namespace Qt::StringLiterals;

namespace {

QSharedPointer<ValidationInterface> MakeValidation(const LimitsData& limits)
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

void AddMeasurement(const MeasurementData& wanted, long id, const QSharedPointer<TestStep>& step,
                    TestResultSet* set)
{
    const auto measurement =
        QSharedPointer<TestMeasurement>::create(id, wanted.name, wanted.kind, step.get(), 0U, -1L);
    measurement->SetIdentString(wanted.ident);
    step->AddMeasurement(measurement);
    if (!wanted.hasResult)
        return;
    TestResult* const result = AddResult(set, measurement, wanted.result);
    if (wanted.value.isValid())
        result->SetValue(wanted.value);
    if (wanted.limits)
        result->SetValidation(MakeValidation(*wanted.limits));
}

void AddResultSet(const UnitData& unit, UUTTest* test)
{
    const auto program = QSharedPointer<TestProgram>::create(1L, unit.program, 0UL);
    program->SetVersion(unit.version);
    auto* const set = new TestResultSet(program, nullptr);
    AddResult(set, program, unit.result);
    long id = 1;
    for (const GroupData& groupData : unit.groups) {
        const auto group = QSharedPointer<TestGroup>::create(id++, groupData.name, program.get(), 0U, -1L,
                                                             ZYN_GROUP_USER, nullptr);
        program->AddGroup(group);
        for (const StepData& stepData : groupData.steps) {
            const auto step =
                QSharedPointer<TestStep>::create(id++, stepData.name, group.get(), 0U, -1L, QString());
            group->AddStep(step);
            for (const MeasurementData& wanted : stepData.measurements)
                AddMeasurement(wanted, id++, step, set);
        }
    }
    test->AssignResultSet(set);
}

QSharedPointer<UUTTest> MakeItem(const UnitData& unit)
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

QSharedPointer<UUTTest> MakeTest(const UnitData& unit)
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
    for (const UnitData& item : unit.items) {
        UnitData wanted = item;
        wanted.program = unit.program;
        wanted.version = unit.version;
        test->AddUUTTest(MakeItem(wanted));
    }
    return test;
}

UnitData SimpleUnit(const QString& ident, int tests)
{
    StepData step{u"Supply"_s, {}};
    for (int number = 1; number <= tests; ++number) {
        LimitsData limits{true, u"<="_s, u"<="_s, 0.001, 0.5, -3, MeasurementUnit::Volt};
        step.measurements.append({QString::number(number), u"Rail %1"_s.arg(number), ZYN_ADDRESS_REAL,
                                  0.0123 * number, limits, ZYN_RESULT_PASSED, true});
    }
    UnitData unit;
    unit.ident = ident;
    unit.product = u"Motor board"_s;
    unit.lot = u"LOT-1"_s;
    unit.machine = u"TESTER-3"_s;
    unit.user = u"Anna"_s;
    unit.program = u"motor.tp"_s;
    unit.version = u"1.2"_s;
    unit.start = QDateTime({2024, 5, 17}, {8, 30, 0}, Qt::UTC);
    unit.stop = unit.start.addSecs(12);
    unit.seconds = 12.345;
    unit.groups = {{u"Power"_s, {step}}};
    return unit;
}

} // namespace ZYN::LotModels
