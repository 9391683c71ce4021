#include "RecordedWalk.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/StatisticsDataReport.h>

using namespace ZYN;
using namespace ZYN::RecordedWalk;

namespace {

const QString header = "BeginUUTTest U, UnitUnderTest board, ProductType type, ProductionLot lot, "
                       "Session machine, Fixture fixture, EndUUTTest U, ";

} // namespace

/// What the directors call, in which order: for reports, test plans and statistics.
class WalkTest : public QObject {
    Q_OBJECT

private slots:
    void ResultSet_data()
    {
        const QString parameters = "TestParameter A(A), TestParameter B(B), ";
        const QString firstStep =
            "BeginTestStep S1(S1), TestMeasurement M1(M1), TestMeasurement M2(M2), EndTestStep S1";
        const QString firstGroup =
            "BeginTestGroup G1(G1), " + parameters + firstStep + ", TestStep S2(S2), EndTestGroup G1";
        const QString program = "BeginTestProgram P(P), " + firstGroup +
                                ", BeginTestGroup G2(G2), BeginTestStep S3(S3), TestMeasurement M3(M3), "
                                "EndTestStep S3, EndTestGroup G2, EndTestProgram P, ";
        const QString whole = "Open, BeginTestResultSet #7, " + program + "EndTestResultSet #7, Close";
        const QString programless = "Open, TestResultSet #7, Close";

        const Rows<QString, QStringList, QString> row;
        const auto refused = [&](const QString& call, const QString& what, const QString& left) {
            row(qPrintable(call + " refused"), call, QStringList(), QString(whole).replace(what, left));
        };
        row("whole", "", QStringList(), whole);
        refused("BeginTestResultSet #7", "", "");
        refused("BeginTestProgram P(P)", program, "BeginTestProgram P(P), ");
        refused("BeginTestGroup G1(G1)", firstGroup, "BeginTestGroup G1(G1)");
        refused("BeginTestParameter A(A)", "TestParameter A", "BeginTestParameter A");
        refused("BeginTestStep S1(S1)", firstStep, "BeginTestStep S1(S1)");
        refused("BeginTestMeasurement M1(M1)", "TestMeasurement M1", "BeginTestMeasurement M1");
        row("program without result", "", QStringList("P"), programless);
        QString resultless = whole;
        for (const char* name : {"(G1)", "(A)", "(S1)", "(M2)"})
            resultless.replace(name, "(none)");
        row("components without result", "", QStringList({"G1", "A", "S1", "M2"}), resultless);
    }
    void ResultSet()
    {
        const auto [refused, withoutResult, trace] = CurrentRow<QString, QStringList, QString>();
        const WalkedProgram program;
        const std::unique_ptr<TestResultSet> set(program.Run(7, withoutResult));
        RecordingBuilder builder;
        builder.refused = QStringList(refused);

        QVERIFY(CExportDirectorReport().ExportTestResultSet(set.get(), &builder));
        QCOMPARE(builder.Trace(), Trace(trace));
    }

    void NothingToWalk()
    {
        CExportDirectorReport director;
        CExportDirectorTestPlan planDirector;
        const WalkedProgram program;
        const std::unique_ptr<TestResultSet> set(program.Run(7));
        TestResultSet withoutProgram({}, {});
        UUTTest test(1, "U");
        StatisticsDataReport statistics;
        RecordingBuilder builder;

        QVERIFY(!director.AcceptComponent(nullptr));
        QVERIFY(!director.ExportTestResultSet(nullptr, &builder));
        QVERIFY(!director.ExportTestResultSet(set.get(), nullptr));
        QVERIFY(!director.ExportTestResultSet(&withoutProgram, &builder));
        QVERIFY(!director.ExportUUTTest(nullptr, &builder));
        QVERIFY(!director.ExportUUTTest(&test, nullptr));
        QVERIFY(!planDirector.ExportTestPlan(nullptr, &builder));
        QVERIFY(!planDirector.ExportTestPlan(program.program.data(), nullptr));
        QVERIFY(!CExportDirectorBase::ExportStatistics(nullptr, &builder));
        QVERIFY(!CExportDirectorBase::ExportStatistics(&statistics, nullptr));
        builder.opened = true;
        QVERIFY(!CExportDirectorBase::ExportStatistics(&statistics, &builder));
        QCOMPARE(builder.calls, QStringList());
        QVERIFY(builder.opened);

        RecordingBuilder stuck;
        stuck.refused = {"Open"};
        QVERIFY(!director.ExportTestResultSet(set.get(), &stuck));
        QVERIFY(!director.ExportUUTTest(&test, &stuck));
        QCOMPARE(stuck.calls, QStringList({"Open", "Open"}));
    }

    void Unit()
    {
        const WalkedProgram program;
        UUTTest test(1, "U");
        FillHeader(test);
        test.AssignResultSet(program.Run(1, {"P"}));
        test.AssignResultSet(program.Run(2, {"P"}));
        const QString walk = header + "BeginTestResults, TestResultSet #1, TestResultSet #2, EndTestResults";

        RecordingBuilder builder;
        QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &builder));
        QCOMPARE(builder.Trace(), Trace("Open, " + walk + ", Close"));

        RecordingBuilder opened;
        opened.opened = true;
        // None of these answers suppresses anything.
        opened.refused = builder.calls.filter("Begin");
        QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &opened));
        QCOMPARE(opened.Trace(), Trace(walk));
        QVERIFY(opened.opened);
    }

    void UnitHeaderOfABuilderThatCloses()
    {
        UUTTest test(1, "U");
        FillHeader(test);
        RecordingBuilder builder;
        builder.closing = {"EndProductType type"};

        QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &builder));
        QCOMPARE(builder.Trace(),
                 Trace("Open, BeginUUTTest U, UnitUnderTest board, ProductType type, EndUUTTest U, Close"));
    }

    void PanelItems()
    {
        const WalkedProgram program;
        UUTTest panel(1, "U");
        FillHeader(panel);
        const auto item = QSharedPointer<UUTTest>::create(2, "I1");
        FillHeader(*item);
        item->AssignResultSet(program.Run(1, {"P"}));
        // Items of items are not reported.
        item->AddUUTTest(QSharedPointer<UUTTest>::create(4, "deeper"));
        panel.AddUUTTest(item);
        panel.AddUUTTest(QSharedPointer<UUTTest>::create(3, "I2"));

        RecordingBuilder builder;
        QVERIFY(CExportDirectorReport().ExportUUTTest(&panel, &builder));
        QCOMPARE(builder.Trace(), Trace("Open, " + header + R"(
            BeginSubUnitTests
              BeginSubUnitTest
                BeginUUTTest I1, UnitUnderTest board
                  BeginTestResults, TestResultSet #1, EndTestResults
                EndUUTTest I1
              EndSubUnitTest
              BeginSubUnitTest, UUTTest I2, EndSubUnitTest
            EndSubUnitTests, Close)"));
    }

    void Plan_data()
    {
        const Rows<QString, QString> row;
        row("whole", "", R"(
            Open, BeginTestProgram P
              BeginTestGroup G1
                TestParameter A, TestParameter B
                BeginTestStep S1, TestMeasurement M1, TestMeasurement M2, EndTestStep S1
                TestStep S2
              EndTestGroup G1
              BeginTestGroup G2
                BeginTestStep S3, TestMeasurement M3, EndTestStep S3
              EndTestGroup G2
            EndTestProgram P, Close)");
        row("program refused", "BeginTestProgram P", "Open, BeginTestProgram P, Close");
        row("groups refused", "BeginTestGroup G1, BeginTestGroup G2",
            "Open, BeginTestProgram P, BeginTestGroup G1, BeginTestGroup G2, EndTestProgram P, Close");
        row("cannot be opened", "Open", "Open");
    }
    void Plan()
    {
        const auto [refused, trace] = CurrentRow<QString, QString>();
        const WalkedProgram program;
        program.Hide("G1");
        program.Hide("M1");
        RecordingBuilder builder;
        builder.refused = Trace(refused);
        // The plan is opened also where the builder was open already.
        builder.opened = true;

        QCOMPARE(CExportDirectorTestPlan().ExportTestPlan(program.program.data(), &builder),
                 refused != "Open");
        QCOMPARE(builder.Trace(), Trace(trace));
        QVERIFY(!builder.opened);
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
        const WalkedProgram program;
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
};

QTEST_GUILESS_MAIN(WalkTest)
#include "WalkTest.moc"
