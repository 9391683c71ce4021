#include "examples/line_simulator/BoardTest.h"
#include "examples/line_simulator/Line.h"
#include "support/Model.h"
#include "support/Test.h"

using namespace ZYN;
using namespace ZYN::Simulation;

namespace {

QString KeyOf(long step, long measurement)
{
    return QString("%1/%2").arg(step).arg(measurement);
}

QSet<QString> FailedMeasurements(const TestResultSet* run)
{
    QSet<QString> failed;
    for (const TestComponent* const group : run->GetTestProgram()->GetChildren()) {
        for (const TestComponent* const step : group->GetChildren()) {
            for (const TestComponent* const measurement : step->GetChildren()) {
                const TestResult* const result = run->GetResult(measurement);
                if (result && result->GetResult() < 0)
                    failed.insert(KeyOf(step->GetID(), measurement->GetID()));
            }
        }
    }
    return failed;
}

} // namespace

class LineSimulatorTest : public QObject {
    Q_OBJECT
private slots:
    void AFaultFailsItsMeasurementsAndNoOthers()
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
};

QTEST_GUILESS_MAIN(LineSimulatorTest)
#include "LineSimulatorTest.moc"
