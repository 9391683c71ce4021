#include "SampleModels.h"

#include "SampleProgram.h"

#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>

namespace ZYN::SampleModels {

using namespace Qt::StringLiterals;

namespace {

QSharedPointer<Station> SampleStation()
{
    const QSharedPointer<Station> station(new Station(3, u"ICT-03"_s));
    station->SetDescription(u"In-circuit test, line 2"_s);
    return station;
}

QSharedPointer<ProductType> SampleProductType()
{
    const QSharedPointer<ProductType> product(new ProductType(12, u"Motor Controller MC-40"_s));
    product->SetArticelCode(u"MC40-0012-B"_s);
    product->SetCustomer(u"Example Drives"_s);
    product->SetDescription(u"Three-phase controller, 40 A"_s);
    product->SetClusterLevel(1);
    product->AddTestProgram(100);
    product->SetParameter(u"Revision"_s, u"B"_s);
    return product;
}

ZYNSession* SampleSession()
{
    const QSharedPointer<WorkSpace> workSpace(new WorkSpace(5, u"Production"_s));
    workSpace->CreateNewUser(u"operator1"_s);
    workSpace->Login(0, QString());
    auto* const session = new ZYNSession;
    session->SetMachineName(u"TESTER-07"_s);
    session->SetWorkSpace(workSpace);
    return session;
}

QSharedPointer<UnitUnderTest> SampleUnit(long id, const QString& serialNo, long panelIndex = 0)
{
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(id, u"MC-40"_s));
    unit->SetSerialNo(serialNo);
    unit->SetIdentString(u"MC40;"_s + serialNo);
    unit->SetPanelIndex(panelIndex);
    unit->SetProductType(SampleProductType());
    return unit;
}

void SetTimes(UUTTest* test, double seconds)
{
    test->SetStartTimeString(u"2024-03-05T10:15:00+01:00"_s);
    test->SetStopTimeString(u"2024-03-05T10:16:23+01:00"_s);
    test->SetDuration(seconds);
}

/// A test with every header item.
QSharedPointer<UUTTest> SampleTest(long id, const QString& serialNo)
{
    const QSharedPointer<UUTTest> test(new UUTTest(id, u"Final test"_s));
    test->SetUnitUnderTest(SampleUnit(id, serialNo));
    const QSharedPointer<ProductionLot> lot(new ProductionLot(77, u"LOT-2024-077"_s));
    lot->SetOrderCode(u"PO-4500012"_s);
    test->SetProductionLot(lot);
    const QSharedPointer<Fixture> fixture(new Fixture(9, u"Bed of nails 9"_s));
    fixture->SetIdent(u"FX-9"_s);
    fixture->SetDescription(u"160 probes"_s);
    fixture->SetSerialNo(u"F0009"_s);
    fixture->SetFixtureTypeName(u"Vacuum"_s);
    test->SetFixture(fixture);
    test->SetSession(SampleSession());
    SetTimes(test.get(), 83.0);
    return test;
}

void NameProgram(TestProgram* program, const QString& displayName, const char* fileName)
{
    program->SetDisplayName(displayName);
    program->SetCreator(u"j.doe"_s);
    program->SetVersion(u"2.1.0"_s);
    program->SetFileVersion(u"5"_s);
    program->SetFileName(fileName);
}

/// The program of a panel item: one group with a step of two voltages.
QSharedPointer<TestProgram> ItemProgram()
{
    ProgramWriter writer(200, u"ItemTest"_s);
    NameProgram(writer.program.get(), u"Panel item test"_s, "/programs/item_test.prg");
    writer.Group(210, u"Supply"_s);
    writer.Step(211, u"Rails"_s, u"Voltages of both rails"_s);
    writer.Measurement(1, u"5V rail"_s, ZYN_ADDRESS_REAL, RealLimits(MeasurementUnit::Volt, 4.75, 5.25));
    writer.Measurement(2, u"3V3 rail"_s, ZYN_ADDRESS_REAL, RealLimits(MeasurementUnit::Volt, 3.2, 3.4));
    return writer.program;
}

/// A run of the item program; a rail that is not a number was not reached because the test was aborted.
QSharedPointer<UUTTest> PanelItem(const QSharedPointer<TestProgram>& program, long index, double rail5,
                                  const QVariant& rail33)
{
    const QSharedPointer<UUTTest> test(new UUTTest(300 + index, u"Item"_s));
    test->SetUnitUnderTest(SampleUnit(300 + index, u"P0042-%1"_s.arg(index), index));
    SetTimes(test.get(), 12.5);

    const auto group = program->GetGroupForIndex(0);
    const auto step = group->GetStepForIndex(0);
    RunWriter run(program, SampleStation(), 1);
    TestResult* const whole = run.Verdict(program, 12.5);
    TestResult* const groupResult = run.Verdict(group, 12.25);
    TestResult* const stepResult = run.Verdict(step, 12.0);
    run.Value(step->GetMeasurementForIndex(0), rail5);
    TestResult* const last = run.Value(step->GetMeasurementForIndex(1), rail33);
    if (!rail33.isValid()) {
        for (TestResult* const result : {whole, groupResult, stepResult, last})
            result->SetResult(ZYN_RESULT_ABORTED);
        last->SetComment(u"Stopped by the operator"_s);
    }
    test->AssignResultSet(run.Take());
    return test;
}

} // namespace

QSharedPointer<UUTTest> PassedUnit()
{
    ProgramWriter writer(100, u"BoardTest"_s);
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), u"Board test MC-40"_s, "/programs/board_test.prg");
    run.Verdict(writer.program, 83.0)->SetComment(u"All done"_s);

    run.Verdict(writer.Group(110, u"Power up"_s, ZYN_GROUP_SETUP), 1.5);
    run.Verdict(writer.Step(111, u"Switch on"_s), 1.25);
    run.Value(writer.Measurement(0, u"Relay"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 1, 1)), 1);

    run.Verdict(writer.Group(120, u"Supply"_s), 60.0)->SetAttribute(u"critical"_s);
    run.Value(writer.Parameter(121, u"Settling time"_s, ZYN_ADDRESS_REAL), 0.25);
    run.Value(writer.Parameter(122, u"Mode"_s, ZYN_ADDRESS_STRING), u"fast"_s);
    run.Verdict(writer.Step(123, u"Idle current"_s, u"Current without load"_s), 20.0);
    run.Value(writer.Measurement(0, u"Idle current"_s, ZYN_ADDRESS_REAL,
                                 RealLimits(MeasurementUnit::Ampere, 0.010, 0.015, -3)),
              0.0123);
    run.Value(writer.Measurement(1, u"Ripple"_s, ZYN_ADDRESS_REAL,
                                 RealLimits(MeasurementUnit::Ampere, 0.0, 0.000002, -6, "", "<")),
              0.0000015);
    run.Verdict(writer.Step(124, u"Rails"_s, u"Voltages of both rails"_s), 30.0);
    run.Value(writer.Measurement(1, u"5V rail"_s, ZYN_ADDRESS_REAL,
                                 RealLimits(MeasurementUnit::Volt, 4.75, 5.25)),
              5.01)
        ->SetComment(u"Calibrated 2024-01"_s);
    run.Value(writer.Measurement(2, u"Clock"_s, ZYN_ADDRESS_REAL,
                                 RealLimits(MeasurementUnit::Hertz, 7.9e6, 8.1e6, 6)),
              8000125.5);

    run.Verdict(writer.Group(130, u"Power down"_s, ZYN_GROUP_CLEANUP), 0.75);
    run.Verdict(writer.Step(131, u"Switch off"_s), 0.5);

    const QSharedPointer<UUTTest> test = SampleTest(1, u"SN000123"_s);
    test->SetResultDescription(u"Passed at first try"_s);
    test->AssignResultSet(run.Take());
    return test;
}

QSharedPointer<UUTTest> Panel()
{
    const QSharedPointer<UUTTest> panel = SampleTest(300, u"P0042"_s);
    const auto multiPanel = panel->GetProductType()->GetMultiPanelInfo();
    multiPanel->SetMultiPanel(true);
    multiPanel->SetPanelItems(3);
    multiPanel->SetSplitting(true);
    multiPanel->SetSplittingString(u"200_3"_s);

    ProgramWriter writer(150, u"PanelTest"_s);
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), u"Panel test"_s, "/programs/panel_test.prg");
    run.Verdict(writer.program, 5.0);
    run.Verdict(writer.Group(160, u"Panel"_s), 4.5);
    run.Verdict(writer.Step(161, u"Barcode"_s), 4.0);
    run.Value(writer.Measurement(0, u"Barcode"_s, ZYN_ADDRESS_STRING, TextLimit(u"P0042"_s)), u"P0042"_s);
    panel->AssignResultSet(run.Take());

    const QSharedPointer<TestProgram> program = ItemProgram();
    panel->AddUUTTest(PanelItem(program, 1, 5.01, 3.3));
    panel->AddUUTTest(PanelItem(program, 2, 4.5, 3.31));
    panel->AddUUTTest(PanelItem(program, 3, 5.0, QVariant()));
    return panel;
}

QSharedPointer<UUTTest> BareUnit()
{
    const QSharedPointer<UUTTest> test(new UUTTest(0, QString()));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(0, QString()));
    unit->SetSerialNo(u"SN000001"_s);
    test->SetUnitUnderTest(unit);
    return test;
}

QSharedPointer<UUTTest> ExcludedComponents()
{
    ProgramWriter writer(400, u"Excluded"_s);
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), u"Program with private parts"_s, "/programs/excluded.prg");
    const auto exclude = [](const QSharedPointer<TestComponent>& component) {
        component->SetLogInReportCtrl(new CtrlLogInReport(false));
    };

    // The program's own control counts for nothing.
    exclude(writer.program);
    run.Verdict(writer.program, 4.0);
    const auto group = writer.Group(410, u"Reported group"_s);
    run.Verdict(group, 2.0);
    run.Value(writer.Parameter(411, u"Reported parameter"_s, ZYN_ADDRESS_INTEGER), 1);
    const auto parameter = writer.Parameter(412, u"Excluded parameter"_s, ZYN_ADDRESS_INTEGER);
    exclude(parameter);
    run.Value(parameter, 2);
    run.Verdict(writer.Step(413, u"Reported step"_s), 1.0);
    run.Value(writer.Measurement(1, u"Reported measurement"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 0, 9)),
              3);
    const auto measurement =
        writer.Measurement(2, u"Excluded measurement"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 0, 9));
    exclude(measurement);
    run.Value(measurement, 4);
    const auto step = writer.Step(414, u"Excluded step"_s);
    exclude(step);
    run.Verdict(step, 1.0);
    run.Value(writer.Measurement(1, u"In an excluded step"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 0, 9)),
              5);
    const auto hidden = writer.Group(420, u"Excluded group"_s);
    exclude(hidden);
    run.Verdict(hidden, 2.0);
    run.Verdict(writer.Step(421, u"In an excluded group"_s), 1.0);

    const QSharedPointer<UUTTest> test = SampleTest(4, u"SN000456"_s);
    test->AssignResultSet(run.Take());
    return test;
}

QDateTime ReportTime()
{
    return QDateTime(QDate(2024, 3, 5), QTime(10, 17, 42));
}

QString EngineVersion()
{
    return u"4.2.1"_s;
}

} // namespace ZYN::SampleModels
