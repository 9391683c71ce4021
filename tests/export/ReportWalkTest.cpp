#include "RecordingBuilder.h"
#include "WalkModel.h"
#include "support/Rows.h"

#include "export/CExportDirectorReport.h"

#include <QtTest/QtTest>

using namespace ZYN;
using namespace ZYN::WalkModel;

namespace {

const QString header = "BeginUUTTest U, UnitUnderTest board, ProductType type, ProductionLot lot, "
                       "Session machine, Fixture fixture, EndUUTTest U, ";

} // namespace

class ReportWalkTest : public QObject {
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
        const Program program;
        const std::unique_ptr<TestResultSet> set(program.Run(7, withoutResult));
        RecordingBuilder builder;
        builder.refused = QStringList(refused);

        QVERIFY(CExportDirectorReport().ExportTestResultSet(set.get(), &builder));
        QCOMPARE(builder.Trace(), Trace(trace));
    }

    void ResultSetLeavesAnOpenedBuilderOpen()
    {
        const std::unique_ptr<TestResultSet> set(Program().Run(7, {"P"}));
        RecordingBuilder builder;
        builder.opened = true;

        QVERIFY(CExportDirectorReport().ExportTestResultSet(set.get(), &builder));
        QCOMPARE(builder.calls, QStringList({"BeginTestResultSet #7", "EndTestResultSet #7"}));
        QVERIFY(builder.opened);
    }

    void NothingToWalk()
    {
        CExportDirectorReport director;
        const std::unique_ptr<TestResultSet> set(Program().Run(7));
        TestResultSet withoutProgram({}, {});
        UUTTest test(1, "U");
        RecordingBuilder builder;

        QVERIFY(!director.ExportTestResultSet(nullptr, &builder));
        QVERIFY(!director.ExportTestResultSet(set.get(), nullptr));
        QVERIFY(!director.ExportTestResultSet(&withoutProgram, &builder));
        QVERIFY(!director.ExportUUTTest(nullptr, &builder));
        QVERIFY(!director.ExportUUTTest(&test, nullptr));
        QCOMPARE(builder.calls, QStringList());

        builder.refused = {"Open"};
        QVERIFY(!director.ExportTestResultSet(set.get(), &builder));
        QVERIFY(!director.ExportUUTTest(&test, &builder));
        QCOMPARE(builder.calls, QStringList({"Open", "Open"}));
    }

    void Filter_data()
    {
        const Rows<QString, QString> row;
        row("group", "G1", "G1 A B S1 M1 M2 S2");
        row("parameter", "A", "A");
        row("step", "S1", "S1 M1 M2");
        row("measurement", "M1", "M1");
        row("program is not filtered", "P", QString());
    }
    void Filter()
    {
        const auto [hidden, missing] = CurrentRow<QString, QString>();
        const Program program;
        const std::unique_ptr<TestResultSet> set(program.Run(7));
        RecordingBuilder everything;
        CExportDirectorReport director;
        QVERIFY(director.ExportTestResultSet(set.get(), &everything));

        program.Hide(hidden);
        RecordingBuilder ignoring;
        director.ignoreReportFlag = true;
        QVERIFY(director.ExportTestResultSet(set.get(), &ignoring));
        QCOMPARE(ignoring.calls, everything.calls);

        RecordingBuilder filtered;
        director.ignoreReportFlag = false;
        QVERIFY(director.ExportTestResultSet(set.get(), &filtered));
        QStringList expected = everything.calls;
        for (const QString& name : missing.split(' ', Qt::SkipEmptyParts))
            expected.removeIf(
                [&](const QString& line) { return line.section(' ', 1).section('(', 0, 0) == name; });
        QCOMPARE(filtered.calls, expected);
        QVERIFY(!director.AcceptComponent(nullptr));
    }

    void Unit()
    {
        const Program program;
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
        const Program program;
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

    void UnitWithASetWithoutProgram()
    {
        for (const bool inItem : {false, true}) {
            const Program program;
            UUTTest test(1, "U");
            const auto item = QSharedPointer<UUTTest>::create(2, "I");
            test.AddUUTTest(item);
            test.AddUUTTest(QSharedPointer<UUTTest>::create(3, "never reached"));
            UUTTest& broken = inItem ? *item : test;
            broken.AssignResultSet(program.Run(1, {"P"}));
            broken.AssignResultSet(new TestResultSet({}, {}));
            broken.AssignResultSet(program.Run(3));

            RecordingBuilder builder;
            QVERIFY(!CExportDirectorReport().ExportUUTTest(&test, &builder));
            const QString before = inItem ? "BeginSubUnitTests, BeginSubUnitTest, BeginUUTTest I, " : "";
            QCOMPARE(builder.Trace(),
                     Trace("Open, UUTTest U, " + before + "BeginTestResults, TestResultSet #1"));
            QVERIFY(builder.opened);
        }
    }
};

QTEST_GUILESS_MAIN(ReportWalkTest)
#include "ReportWalkTest.moc"
