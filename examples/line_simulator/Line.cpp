#include "Line.h"

#include "BoardTest.h"
#include "MotorBoard.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

namespace ZYN::Simulation {

namespace {

constexpr int programId = 4801;
constexpr int handlingSeconds = 6; // from one board or run to the next
constexpr int panelSeconds = 20;   // to change a panel

QSharedPointer<ProductType> MakeProductType(int items)
{
    const auto type = QSharedPointer<ProductType>::create(480100, QStringLiteral("MCB-48"));
    type->SetArticelCode(QStringLiteral("48-0100-C"));
    type->SetCustomer(QStringLiteral("Drive Systems"));
    type->SetDescription(QStringLiteral("48 V motor controller board"));
    type->SetClusterLevel(1);
    type->SetParameter(QStringLiteral("BoardRevision"), QStringLiteral("C"));
    type->SetParameter(QStringLiteral("Coating"), QStringLiteral("acrylic"));
    type->AddTestProgram(programId);
    if (items > 1) {
        type->GetMultiPanelInfo()->SetMultiPanel(true);
        type->GetMultiPanelInfo()->SetPanelItems(items);
        type->GetMultiPanelInfo()->SetSplitting(true);
        type->GetMultiPanelInfo()->SetSplittingString(QStringLiteral("%1_%2").arg(programId).arg(items));
    }
    return type;
}

QSharedPointer<Fixture> MakeFixture()
{
    const auto fixture = QSharedPointer<Fixture>::create(77, QStringLiteral("MCB-48 adapter"));
    fixture->SetIdent(QStringLiteral("FX-0077"));
    fixture->SetSerialNo(QStringLiteral("2203-15"));
    fixture->SetFixtureTypeName(QStringLiteral("Bed of nails"));
    fixture->SetDescription(QStringLiteral("412 probes, vacuum"));
    return fixture;
}

QSharedPointer<WorkSpace> MakeWorkSpace()
{
    const auto workSpace = QSharedPointer<WorkSpace>::create(3, QStringLiteral("Motor controllers"));
    workSpace->CreateNewUser(QStringLiteral("a.weber"));
    workSpace->Login(0, QString());
    return workSpace;
}

QSharedPointer<Station> MakeStation()
{
    const auto station = QSharedPointer<Station>::create(12, QStringLiteral("FCT-2"));
    station->SetDescription(QStringLiteral("Function test, line 2"));
    return station;
}

// The morning on which the lot was started, at a fixed offset from UTC so that no machine's time zone counts.
QDateTime LotStart(quint64 seed)
{
    return QDateTime(QDate(2024, 1, 8).addDays(qint64(seed % 300)), QTime(6, 0), Qt::OffsetFromUTC, 3600);
}

// Time that a board gets on the line: enough for a test and a retest.
qint64 BoardSlotSeconds(const Blueprint& blueprint)
{
    qint64 milliseconds = 0;
    for (const GroupDef& group : blueprint.Groups())
        for (const StepDef& step : group.steps)
            for (const MeasurementDef& def : step.measurements)
                milliseconds += def.milliseconds + def.milliseconds / 8;
    return 2 * (milliseconds / 1000 + 1 + handlingSeconds);
}

} // namespace

Line::Line(const LineSettings& settings)
    : m_settings(settings)
    , m_blueprint(MotorBoardTest(settings.sweepSteps, settings.sweepMeasurements))
    , m_boardSlotSeconds(BoardSlotSeconds(m_blueprint))
    , m_faults(settings.seed)
    , m_productType(MakeProductType(settings.itemsPerPanel))
    , m_lot(QSharedPointer<ProductionLot>::create(
          long(settings.seed % 100000),
          QStringLiteral("L%1").arg(settings.seed % 100000, 5, 10, QLatin1Char('0'))))
    , m_fixture(MakeFixture())
    , m_station(MakeStation())
    , m_workSpace(MakeWorkSpace())
{
    m_lot->SetOrderCode(QStringLiteral("PO-%1").arg(70000 + settings.seed % 10000));
}

Line::~Line() = default;

QSharedPointer<TestProgram> Line::Program() const
{
    return m_blueprint.Build();
}

quint64 Line::BoardNumber(int panel, int item) const
{
    return quint64(panel - 1) * quint64(m_settings.itemsPerPanel) + quint64(item - 1);
}

const Fault* Line::FaultOf(int panel, int item) const
{
    return m_faults.ForBoard(BoardNumber(panel, item));
}

QSharedPointer<UnitUnderTest> Line::MakeUnit(quint64 board, int item) const
{
    const QString serial = QStringLiteral("%1").arg(board + 1, 7, 10, QLatin1Char('0'));
    const auto unit = QSharedPointer<UnitUnderTest>::create(long(board + 1), QStringLiteral("MCB-48"));
    unit->SetSerialNo(serial);
    unit->SetIdentString(m_lot->GetName() + QLatin1Char('-') + serial);
    unit->SetPanelIndex(item);
    unit->SetProductType(m_productType);
    return unit;
}

void Line::AddHeader(UUTTest* test, const QString& machine) const
{
    auto* const session = new ZYNSession;
    session->SetMachineName(machine);
    session->SetWorkSpace(m_workSpace);
    test->SetSession(session);
    test->SetProductionLot(m_lot);
    test->SetFixture(m_fixture);
}

void Line::AddRuns(UUTTest* test, const PanelTest& panel, int item, QDateTime* clock) const
{
    const quint64 board = BoardNumber(panel.panel, item);
    const Fault* const fault = m_faults.ForBoard(board);
    const int runs = fault && fault->goneOnRetest ? 2 : 1;
    // Half warm after 25 panels.
    const double warmth = double(panel.panel) / double(panel.panel + 25);
    const quint64 seed = m_settings.seed + (panel.attempt << 32);

    test->SetStartTime(*clock);
    double seconds = 0.0;
    for (int index = 1; index <= runs; ++index) {
        BoardOutcome outcome = TestBoard(
            m_blueprint, m_station, {Random(seed, board * 2 + quint64(index)), fault, warmth, index, *clock});
        seconds += outcome.seconds;
        *clock = clock->addMSecs(qRound64(outcome.seconds * 1000.0));
        test->SetStopTime(*clock);
        *clock = clock->addSecs(handlingSeconds);
        test->SetResultDescription(outcome.firstFailure);
        // The last run decides: a board that passes its retest is good.
        test->SetResult(outcome.results->GetResult(outcome.results->GetTestProgram().data())->GetResult());
        test->AssignResultSet(outcome.results.release());
    }
    test->SetDuration(seconds);
}

QDateTime Line::StartOf(int number) const
{
    const qint64 slot = panelSeconds + m_boardSlotSeconds * m_settings.itemsPerPanel;
    return LotStart(m_settings.seed).addSecs((number - 1) * slot);
}

std::unique_ptr<UUTTest> Line::MakePanel(int number) const
{
    return Make({number, StartOf(number), QStringLiteral("LINE2-FCT2")}, false);
}

std::unique_ptr<UUTTest> Line::MakePanel(const PanelTest& test) const
{
    return Make(test, true);
}

std::unique_ptr<UUTTest> Line::Make(const PanelTest& of, bool isItemInSlot) const
{
    const int items = m_settings.itemsPerPanel;
    QDateTime clock = of.start;
    auto test = std::make_unique<UUTTest>(of.panel, QStringLiteral("Panel %1").arg(of.panel));
    AddHeader(test.get(), of.machine);
    if (items == 1) {
        test->SetUnitUnderTest(MakeUnit(BoardNumber(of.panel, 1), 0));
        AddRuns(test.get(), of, 1, &clock);
        return test;
    }

    const auto panel = QSharedPointer<UnitUnderTest>::create(of.panel, QStringLiteral("MCB-48 panel"));
    panel->SetSerialNo(QStringLiteral("P%1").arg(of.panel, 6, 10, QLatin1Char('0')));
    panel->SetIdentString(m_lot->GetName() + QLatin1Char('-') + panel->GetSerialNo());
    panel->SetProductType(m_productType);
    test->SetUnitUnderTest(panel);
    test->SetStartTime(clock);
    double seconds = 0.0;
    for (int item = 1; item <= items; ++item) {
        if (isItemInSlot)
            clock = of.start.addSecs((item - 1) * m_boardSlotSeconds);
        const auto itemTest = QSharedPointer<UUTTest>::create(item, QStringLiteral("Item %1").arg(item));
        itemTest->SetUnitUnderTest(MakeUnit(BoardNumber(of.panel, item), item));
        AddRuns(itemTest.data(), of, item, &clock);
        seconds += double(itemTest->GetDuration_ms()) / 1000.0;
        test->SetStopTime(itemTest->GetStopTime());
        test->AddUUTTest(itemTest);
    }
    test->SetDuration(seconds);
    return test;
}

} // namespace ZYN::Simulation
