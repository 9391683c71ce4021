#include "LotModels.h"

#include "support/SampleProgram.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>
#include <ZYNPersistence/CExportServiceReport.h>

namespace ZYN::LotModels {

namespace {

SampleModels::Limits MakeValidation(const LimitsData& limits)
{
    const QByteArray lower = limits.lowerOperator.toUtf8();
    const QByteArray upper = limits.upperOperator.toUtf8();
    if (limits.real)
        return SampleModels::RealLimits(limits.unit, limits.lower, limits.upper, limits.scale, lower, upper);
    return SampleModels::Limits(TestComponentFactory::CreateValidationInt(
        limits.unit, lower, upper, int(limits.lower), int(limits.upper), -1, -1, -1, -1, -1, -1));
}

void AddResultSet(const UnitData& unit, UUTTest* test)
{
    SampleModels::ProgramWriter writer(1, unit.program);
    SampleModels::RunWriter run(writer.program, nullptr, 0);
    writer.program->SetVersion(unit.version);
    run.Verdict(writer.program, 0.0)->SetResult(unit.result);
    long id = 1;
    for (const GroupData& group : unit.groups) {
        writer.Group(id++, group.name);
        for (const StepData& step : group.steps) {
            writer.Step(id++, step.name);
            for (const MeasurementData& wanted : step.measurements) {
                const auto measurement = writer.Measurement(
                    id++, wanted.name, wanted.kind, wanted.limits ? MakeValidation(*wanted.limits) : nullptr);
                measurement->SetIdentString(wanted.ident);
                if (wanted.hasResult)
                    run.Value(measurement, wanted.value)->SetResult(wanted.result);
            }
        }
    }
    test->AssignResultSet(run.Take());
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

bool Append(const UnitData& unit, const QString& fileName, CExportServiceReport& service)
{
    service.SetOutputFileName(fileName);
    const auto test = MakeTest(unit);
    return service.Export(test.get()) && service.OutputComplete();
}

bool Append(const UnitData& unit, const QString& fileName)
{
    CExportServiceReport service;
    service.SetFormat("STDF");
    return Append(unit, fileName, service);
}

UnitData SimpleUnit(const QString& ident, int tests)
{
    StepData step{"Supply", {}};
    for (int number = 1; number <= tests; ++number) {
        LimitsData limits{true, "<=", "<=", 0.001, 0.5, -3, MeasurementUnit::Volt};
        step.measurements.append({QString::number(number), QString("Rail %1").arg(number), ZYN_ADDRESS_REAL,
                                  0.0123 * number, limits, ZYN_RESULT_PASSED, true});
    }
    UnitData unit;
    unit.ident = ident;
    unit.product = "Motor board";
    unit.lot = "LOT-1";
    unit.machine = "TESTER-3";
    unit.user = "Anna";
    unit.program = "motor.tp";
    unit.version = "1.2";
    unit.start = QDateTime({2024, 5, 17}, {8, 30, 0}, Qt::UTC);
    unit.stop = unit.start.addSecs(12);
    unit.seconds = 12.345;
    unit.groups = {{"Power", {step}}};
    return unit;
}

} // namespace ZYN::LotModels
