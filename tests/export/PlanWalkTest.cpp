#include "RecordingBuilder.h"
#include "WalkModel.h"
#include "support/Rows.h"

#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/StatisticsDataReport.h>

#include <QtTest/QtTest>

using namespace ZYN;
using namespace ZYN::WalkModel;

/// The walks without results: test plans and statistics reports.
class PlanWalkTest : public QObject {
    Q_OBJECT

private slots:
    void Plan()
    {
        const Program program;
        program.Hide("G1");
        program.Hide("M1");
        RecordingBuilder builder;
        // The plan is opened also where the builder was open already.
        builder.opened = true;

        QVERIFY(CExportDirectorTestPlan().ExportTestPlan(program.program.data(), &builder));
        QCOMPARE(builder.Trace(), Trace(R"(
            Open, BeginTestProgram P
              BeginTestGroup G1
                TestParameter A, TestParameter B
                BeginTestStep S1, TestMeasurement M1, TestMeasurement M2, EndTestStep S1
                TestStep S2
              EndTestGroup G1
              BeginTestGroup G2
                BeginTestStep S3, TestMeasurement M3, EndTestStep S3
              EndTestGroup G2
            EndTestProgram P, Close)"));
        QVERIFY(!builder.opened);
    }

    void PlanEarlyEnds()
    {
        CExportDirectorTestPlan director;
        const Program program;
        RecordingBuilder builder;

        QVERIFY(!director.ExportTestPlan(nullptr, &builder));
        QVERIFY(!director.ExportTestPlan(program.program.data(), nullptr));
        QCOMPARE(builder.calls, QStringList());

        builder.refused = {"BeginTestProgram P"};
        QVERIFY(director.ExportTestPlan(program.program.data(), &builder));
        QCOMPARE(builder.calls, QStringList({"Open", "BeginTestProgram P", "Close"}));

        builder.calls.clear();
        builder.refused = {"BeginTestGroup G1", "BeginTestGroup G2"};
        QVERIFY(director.ExportTestPlan(program.program.data(), &builder));
        QCOMPARE(builder.calls, QStringList({"Open", "BeginTestProgram P", "BeginTestGroup G1",
                                             "BeginTestGroup G2", "EndTestProgram P", "Close"}));

        builder.calls.clear();
        builder.refused = {"Open"};
        QVERIFY(!director.ExportTestPlan(program.program.data(), &builder));
        QCOMPARE(builder.calls, QStringList("Open"));
    }

    void Statistics_data()
    {
        const Rows<bool, QString, QString> row;
        row("everything", true, "",
            "Open, Session machine, ProductType type, UnitUnderTest board, TestProgram P, StatisticsData M1, "
            "StatisticsData M2, Close");
        const QString refused = "BeginSession machine, BeginProductType type, BeginUnitUnderTest board, "
                                "BeginTestProgram P, BeginStatisticsData M1, BeginStatisticsData M2";
        row("all refused", true, refused, "Open, " + refused + ", Close");
        row("nothing there", false, "BeginUnitUnderTest null",
            "Open, Session null, ProductType null, BeginUnitUnderTest null, TestProgram null, Close");
        row("cannot be opened", true, "Open", "Open");
    }
    void Statistics()
    {
        const auto [filled, refused, trace] = CurrentRow<bool, QString, QString>();
        const Program program;
        StatisticsDataReport report;
        if (filled) {
            auto* const session = new ZYNSession;
            session->SetMachineName("machine");
            report.SetSession(session);
            report.SetProductType(QSharedPointer<ProductType>::create(1, "type"));
            report.SetUnitUnderTest(QSharedPointer<UnitUnderTest>::create(1, "board"));
            report.SetTestProgram(program.program);
            for (const char* name : {"M1", "M2"})
                report.AddTestData(new StatisticsData(program.components[name]));
        }
        RecordingBuilder builder;
        builder.refused = Trace(refused);

        QCOMPARE(CExportDirectorBase::ExportStatistics(&report, &builder), refused != "Open");
        QCOMPARE(builder.Trace(), Trace(trace));
        QVERIFY(!builder.opened);
    }

    void StatisticsOnAnOpenedBuilder()
    {
        StatisticsDataReport report;
        RecordingBuilder builder;
        QVERIFY(!CExportDirectorBase::ExportStatistics(nullptr, &builder));
        QVERIFY(!CExportDirectorBase::ExportStatistics(&report, nullptr));

        builder.opened = true;
        QVERIFY(!CExportDirectorBase::ExportStatistics(&report, &builder));
        QCOMPARE(builder.calls, QStringList());
        QVERIFY(builder.opened);
    }
};

QTEST_GUILESS_MAIN(PlanWalkTest)
#include "PlanWalkTest.moc"
