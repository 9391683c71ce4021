#include "RecordedWalk.h"
#include "support/Test.h"

#include "export/CExportBuilderDelegation.h"
#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/StatisticsDataReport.h>

using namespace ZYN;
using namespace ZYN::RecordedWalk;

namespace {

class Delegation : public CExportBuilderDelegation {
public:
    using CExportBuilderDelegation::CExportBuilderDelegation;
    bool OpenFile(const QString&) override { return true; }
};

} // namespace

class BuilderSlotsTest : public QObject {
    Q_OBJECT

private slots:
    /// The three walks together call every operation.
    void DelegationForwardsEverySlot()
    {
        const WalkedProgram program;
        UUTTest panel(1, "U");
        FillHeader(panel);
        panel.AssignResultSet(program.Run(1));
        panel.AddUUTTest(QSharedPointer<UUTTest>::create(2, "item"));
        StatisticsDataReport statistics;
        statistics.AddTestData(new StatisticsData(program.components["M1"]));

        const auto walkAll = [&](IExportBuilder* builder) {
            return CExportDirectorReport().ExportUUTTest(&panel, builder) &&
                   CExportDirectorTestPlan().ExportTestPlan(program.program.data(), builder) &&
                   CExportDirectorBase::ExportStatistics(&statistics, builder);
        };
        for (const QString refused : {"", "BeginTestGroup G1(G1)", "BeginTestMeasurement M1", "Open"}) {
            RecordingBuilder direct;
            auto* const target = new RecordingBuilder;
            direct.refused = target->refused = QStringList(refused);
            Delegation delegation(target);
            QCOMPARE(walkAll(&delegation), walkAll(&direct));
            QCOMPARE(target->calls, direct.calls);
            QSet<QString> operations{"Open", "Close"};
            for (const QString& call : direct.calls)
                operations += call.section(' ', 0, 0) + (call.contains('(') ? " with result" : "");
            if (refused.isEmpty())
                QCOMPARE(operations.size(), 37 + 2);
        }
    }

    void DelegationForwardsSettings()
    {
        auto* const target = new RecordingBuilder;
        Delegation delegation(target);
        delegation.SetProperty("key", "value");
        QCOMPARE(target->calls.takeLast(), "key=value");
        QBuffer device;
        delegation.SetDevice(&device);
        QCOMPARE(delegation.GetDevice(), &device);
        for (const bool flag : {true, false}) {
            delegation.SetUseScaledData(flag);
            QCOMPARE(delegation.GetUseScaledData(), flag);
            target->opened = flag;
            QCOMPARE(delegation.IsOpened(), flag);
        }
        target->refused = QStringList{"BeginTestResults", "Close"};
        QVERIFY(!delegation.BeginTestResults() && !delegation.Close());
    }
};

QTEST_GUILESS_MAIN(BuilderSlotsTest)
#include "BuilderSlotsTest.moc"
