#include "examples/line_simulator/BoardTest.h"
#include "examples/line_simulator/Line.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtTest/QTest>

using namespace ZYN;
using namespace ZYN::Simulation;
using namespace Qt::StringLiterals;

namespace {

QString KeyOf(long step, long measurement)
{
    return u"%1/%2"_s.arg(step).arg(measurement);
}

// Calls `visit` with every measurement of a run and its result, null when it was not executed.
template <typename Visit>
void ForEachMeasurement(const TestResultSet* run, const Visit& visit)
{
    const auto program = run->GetTestProgram();
    for (int g = 0; g < program->GetGroupCount(); ++g) {
        const auto group = program->GetGroupForIndex(g);
        for (int s = 0; s < group->GetStepCount(); ++s) {
            const auto step = group->GetStepForIndex(s);
            for (int m = 0; m < step->GetMeasurementCount(); ++m) {
                const auto measurement = step->GetMeasurementForIndex(m);
                visit(step->GetID(), measurement->GetID(), run->GetResult(measurement.data()));
            }
        }
    }
}

QSet<QString> FailedMeasurements(const TestResultSet* run)
{
    QSet<QString> failed;
    ForEachMeasurement(run, [&](long step, long measurement, const TestResult* result) {
        if (result && result->GetResult() < 0)
            failed.insert(KeyOf(step, measurement));
    });
    return failed;
}

// All values of a panel in their order, exact.
QStringList ValuesOf(const UUTTest* panel)
{
    QStringList values;
    for (const auto& item : panel->GetUUTTests()) {
        values << item->GetStartTimeString() << item->GetUnitUnderTest()->GetSerialNo();
        for (const TestResultSet* const run : item->GetResultSets())
            ForEachMeasurement(run, [&](long, long, const TestResult* result) {
                values << (result ? result->GetValueString(nullptr) + result->GetDurationString()
                                  : QString());
            });
    }
    return values;
}

} // namespace

class LineSimulatorTest : public QObject {
    Q_OBJECT
private slots:
    void APanelFollowsFromSeedAndNumberAlone();
    void ValuesStayTheSameOverVersions();
    void AFaultFailsItsMeasurementsAndNoOthers();
};

void LineSimulatorTest::APanelFollowsFromSeedAndNumberAlone()
{
    const Line inOrder({.seed = 3});
    const Line backwards({.seed = 3});
    QList<QStringList> panels;
    for (int number = 1; number <= 3; ++number)
        panels.append(ValuesOf(inOrder.MakePanel(number).get()));
    for (int number = 3; number >= 1; --number)
        QCOMPARE(ValuesOf(backwards.MakePanel(number).get()), panels.at(number - 1));
    QVERIFY(panels.at(0) != panels.at(1));
    QVERIFY(ValuesOf(Line({.seed = 4}).MakePanel(1).get()) != panels.at(0));
}

// People keep lots made by an older version, and expect to make them again.
void LineSimulatorTest::ValuesStayTheSameOverVersions()
{
    const auto panel = Line({.seed = 1}).MakePanel(2);
    QStringList values;
    for (const auto& item : panel->GetUUTTests())
        ForEachMeasurement(item->GetResultSets().first(), [&](long, long id, const TestResult* result) {
            if (id == 331 || id == 241)
                values << result->GetValueString(nullptr);
        });
    QCOMPARE(values.join(QLatin1Char(' ')),
             u"1.781e-11 4.9966 1.811e-11 4.9876 1.8e-11 5.0002 1.761e-11 4.987"_s);
    QCOMPARE(panel->GetStartTimeString(), u"2024-01-09T06:02:20+01:00"_s);
}

void LineSimulatorTest::AFaultFailsItsMeasurementsAndNoOthers()
{
    const Line line({.seed = 11, .itemsPerPanel = 1});
    for (int board = 0; board < FaultDeck::boardsPerDeal; ++board) {
        const Fault* const fault = line.FaultOf(board + 1, 1);
        QSet<QString> expected;
        if (fault) {
            for (const FaultEffect& effect : fault->effects)
                expected.insert(KeyOf(effect.step, effect.measurement));
            QVERIFY2(fault->stoppedAtStep != 0 || expected.size() > 1, fault->cause);
        }
        if (fault && fault->stoppedAtStep == 440)
            expected.insert(KeyOf(440, 441));
        if (fault && fault->stoppedAtStep == 530)
            expected.insert(KeyOf(530, 531));

        const auto test = line.MakePanel(board + 1);
        QCOMPARE(FailedMeasurements(test->GetResultSets().first()), expected);
        QCOMPARE(test->GetResultSets().size(), fault && fault->goneOnRetest ? 2 : 1);
        QCOMPARE(FailedMeasurements(test->GetResultSets().last()),
                 test->GetResultSets().size() == 2 ? QSet<QString>() : expected);
        const EN_ZYN_RESULT verdict = !fault || fault->goneOnRetest ? ZYN_RESULT_PASSED
                                      : fault->stoppedAtStep != 0   ? fault->stop
                                                                    : ZYN_RESULT_FAILED;
        QCOMPARE(test->GetResult(), verdict);
    }
}

QTEST_GUILESS_MAIN(LineSimulatorTest)
#include "LineSimulatorTest.moc"
