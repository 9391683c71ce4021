#include "SampleModels.h"

#include "SampleProgram.h"

namespace ZYN::SampleModels {

namespace {

QSharedPointer<Station> SampleStation()
{
    const QSharedPointer<Station> station(new Station(3, "ICT-03"));
    station->SetDescription("In-circuit test, line 2");
    return station;
}

QSharedPointer<ProductType> SampleProductType()
{
    const QSharedPointer<ProductType> product(new ProductType(12, "Motor Controller MC-40"));
    product->SetArticelCode("MC40-0012-B");
    product->SetCustomer("Example Drives");
    product->SetDescription("Three-phase controller, 40 A");
    product->SetClusterLevel(1);
    product->AddTestProgram(100);
    product->SetParameter("Revision", "B");
    return product;
}

ZYNSession* SampleSession()
{
    const QSharedPointer<WorkSpace> workSpace(new WorkSpace(5, "Production"));
    workSpace->CreateNewUser("operator1");
    workSpace->Login(0, QString());
    auto* const session = new ZYNSession;
    session->SetMachineName("TESTER-07");
    session->SetWorkSpace(workSpace);
    return session;
}

QSharedPointer<UnitUnderTest> SampleUnit(long id, const QString& serialNo, long panelIndex = 0)
{
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(id, "MC-40"));
    unit->SetSerialNo(serialNo);
    unit->SetIdentString("MC40;" + serialNo);
    unit->SetPanelIndex(panelIndex);
    unit->SetProductType(SampleProductType());
    return unit;
}

void SetTimes(UUTTest* test, double seconds)
{
    test->SetStartTimeString("2024-03-05T10:15:00+01:00");
    test->SetStopTimeString("2024-03-05T10:16:23+01:00");
    test->SetDuration(seconds);
}

/// A test with every header item.
QSharedPointer<UUTTest> SampleTest(long id, const QString& serialNo)
{
    const QSharedPointer<UUTTest> test(new UUTTest(id, "Final test"));
    test->SetUnitUnderTest(SampleUnit(id, serialNo));
    const QSharedPointer<ProductionLot> lot(new ProductionLot(77, "LOT-2024-077"));
    lot->SetOrderCode("PO-4500012");
    test->SetProductionLot(lot);
    const QSharedPointer<Fixture> fixture(new Fixture(9, "Bed of nails 9"));
    fixture->SetIdent("FX-9");
    fixture->SetDescription("160 probes");
    fixture->SetSerialNo("F0009");
    fixture->SetFixtureTypeName("Vacuum");
    test->SetFixture(fixture);
    test->SetSession(SampleSession());
    SetTimes(test.get(), 83.0);
    return test;
}

void NameProgram(TestProgram* program, const QString& displayName, const char* fileName)
{
    program->SetDisplayName(displayName);
    program->SetCreator("j.doe");
    program->SetVersion("2.1.0");
    program->SetFileVersion("5");
    program->SetFileName(fileName);
}

/// The program of a panel item: one group with a step of two voltages.
QSharedPointer<TestProgram> ItemProgram()
{
    ProgramWriter writer(200, "ItemTest");
    NameProgram(writer.program.get(), "Panel item test", "/programs/item_test.prg");
    writer.Group(210, "Supply");
    writer.Step(211, "Rails", "Voltages of both rails");
    writer.Measurement(1, "5V rail", ZYN_ADDRESS_REAL, RealLimits(MeasurementUnit::Volt, 4.75, 5.25));
    writer.Measurement(2, "3V3 rail", ZYN_ADDRESS_REAL, RealLimits(MeasurementUnit::Volt, 3.2, 3.4));
    return writer.program;
}

/// A run of the item program; a rail that is not a number was not reached because the test was aborted.
QSharedPointer<UUTTest> PanelItem(const QSharedPointer<TestProgram>& program, long index, double rail5,
                                  const QVariant& rail33)
{
    const QSharedPointer<UUTTest> test(new UUTTest(300 + index, "Item"));
    test->SetUnitUnderTest(SampleUnit(300 + index, QString("P0042-%1").arg(index), index));
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
        last->SetComment("Stopped by the operator");
    }
    test->AssignResultSet(run.Take());
    return test;
}

} // namespace

QSharedPointer<UUTTest> PassedUnit()
{
    ProgramWriter writer(100, "BoardTest");
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), "Board test MC-40", "/programs/board_test.prg");
    run.Verdict(writer.program, 83.0)->SetComment("All done");

    const auto real = [&](long id, const QString& name, double value, const Limits& limits) {
        return run.Value(writer.Measurement(id, name, ZYN_ADDRESS_REAL, limits), value);
    };
    using Unit = MeasurementUnit;
    run.Verdict(writer.Group(110, "Power up", ZYN_GROUP_SETUP), 1.5);
    run.Verdict(writer.Step(111, "Switch on"), 1.25);
    run.Value(writer.Measurement(0, "Relay", ZYN_ADDRESS_INTEGER, IntegerLimits(0, 1, 1)), 1);

    run.Verdict(writer.Group(120, "Supply"), 60.0)->SetAttribute("critical");
    run.Value(writer.Parameter(121, "Settling time", ZYN_ADDRESS_REAL), 0.25);
    run.Value(writer.Parameter(122, "Mode", ZYN_ADDRESS_STRING), "fast");
    run.Verdict(writer.Step(123, "Idle current", "Current without load"), 20.0);
    real(0, "Idle current", 0.0123, RealLimits(Unit::Ampere, 0.010, 0.015, -3));
    real(1, "Ripple", 0.0000015, RealLimits(Unit::Ampere, 0.0, 0.000002, -6, "", "<"));
    run.Verdict(writer.Step(124, "Rails", "Voltages of both rails"), 30.0);
    real(1, "5V rail", 5.01, RealLimits(Unit::Volt, 4.75, 5.25))->SetComment("Calibrated 2024-01");
    real(2, "Clock", 8000125.5, RealLimits(Unit::Hertz, 7.9e6, 8.1e6, 6));

    run.Verdict(writer.Group(130, "Power down", ZYN_GROUP_CLEANUP), 0.75);
    run.Verdict(writer.Step(131, "Switch off"), 0.5);

    const QSharedPointer<UUTTest> test = SampleTest(1, "SN000123");
    test->SetResultDescription("Passed at first try");
    test->AssignResultSet(run.Take());
    return test;
}

QSharedPointer<UUTTest> Panel()
{
    const QSharedPointer<UUTTest> panel = SampleTest(300, "P0042");
    const auto multiPanel = panel->GetProductType()->GetMultiPanelInfo();
    multiPanel->SetMultiPanel(true);
    multiPanel->SetPanelItems(3);
    multiPanel->SetSplitting(true);
    multiPanel->SetSplittingString("200_3");

    ProgramWriter writer(150, "PanelTest");
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), "Panel test", "/programs/panel_test.prg");
    run.Verdict(writer.program, 5.0);
    run.Verdict(writer.Group(160, "Panel"), 4.5);
    run.Verdict(writer.Step(161, "Barcode"), 4.0);
    run.Value(writer.Measurement(0, "Barcode", ZYN_ADDRESS_STRING, TextLimit("P0042")), "P0042");
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
    unit->SetSerialNo("SN000001");
    test->SetUnitUnderTest(unit);
    return test;
}

QSharedPointer<UUTTest> ExcludedComponents()
{
    ProgramWriter writer(400, "Excluded");
    RunWriter run(writer.program, SampleStation(), 1);
    NameProgram(writer.program.get(), "Program with private parts", "/programs/excluded.prg");
    const auto excluded = [](const auto& component) {
        component->SetLogInReportCtrl(new CtrlLogInReport(false));
        return component;
    };
    const auto measurement = [&](long id, const QString& name) {
        return writer.Measurement(id, name, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 0, 9));
    };

    run.Verdict(excluded(writer.program), 4.0); // a program's own control counts for nothing
    run.Verdict(writer.Group(410, "Reported group"), 2.0);
    run.Value(writer.Parameter(411, "Reported parameter", ZYN_ADDRESS_INTEGER), 1);
    run.Value(excluded(writer.Parameter(412, "Excluded parameter", ZYN_ADDRESS_INTEGER)), 2);
    run.Verdict(writer.Step(413, "Reported step"), 1.0);
    run.Value(measurement(1, "Reported measurement"), 3);
    run.Value(excluded(measurement(2, "Excluded measurement")), 4);
    run.Verdict(excluded(writer.Step(414, "Excluded step")), 1.0);
    run.Value(measurement(1, "In an excluded step"), 5);
    run.Verdict(excluded(writer.Group(420, "Excluded group")), 2.0);
    run.Verdict(writer.Step(421, "In an excluded group"), 1.0);

    const QSharedPointer<UUTTest> test = SampleTest(4, "SN000456");
    test->AssignResultSet(run.Take());
    return test;
}

QSharedPointer<UUTTest> UnitWithRows(int rows, const QString& name)
{
    ProgramWriter writer(1, "Rows");
    RunWriter run(writer.program, nullptr, 1);
    run.Verdict(writer.program, 1);
    run.Verdict(writer.Group(2, "Group"), 1);
    run.Verdict(writer.Step(3, "Step"), 1);
    for (int row = 1; row <= rows; ++row)
        run.Value(writer.Measurement(row, name.arg(row), ZYN_ADDRESS_INTEGER), row);
    auto test = QSharedPointer<UUTTest>::create(1, "Unit");
    test->AssignResultSet(run.Take());
    return test;
}

QDateTime ReportTime()
{
    return QDateTime(QDate(2024, 3, 5), QTime(10, 17, 42));
}

QString EngineVersion()
{
    return "4.2.1";
}

} // namespace ZYN::SampleModels
