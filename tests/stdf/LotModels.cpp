#include "LotModels.h"

#include "support/SampleProgram.h"

#include <ZYNPersistence/CExportServiceReport.h>

namespace ZYN::LotModels {

namespace {

void AddResultSet(const UnitData& unit, UUTTest* test)
{
    SampleModels::ProgramWriter writer(1, unit.program);
    SampleModels::RunWriter run(writer.program, nullptr, 0);
    writer.program->SetVersion(unit.version);
    run.Verdict(writer.program, 0.0)->SetResult(unit.result);
    writer.Group(1, "Power");
    writer.Step(2, "Supply");
    const auto limits = SampleModels::RealLimits(MeasurementUnit::Volt, 0.001, 0.5, -3);
    for (int number = 1; number <= unit.tests; ++number)
        run.Value(writer.Measurement(number, QString("Rail %1").arg(number), ZYN_ADDRESS_REAL, limits),
                  0.0123 * number)
            ->SetResult(ZYN_RESULT_PASSED);
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
    const QDateTime start({2024, 5, 17}, {8, 30, 0}, Qt::UTC);
    return {ident, "Motor board",     "LOT-1",           "TESTER-3", "Anna", "motor.tp", "1.2",
            start, start.addSecs(12), ZYN_RESULT_PASSED, 12.345,     true,   tests,      {}};
}

} // namespace ZYN::LotModels
