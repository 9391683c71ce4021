#include "RecordingBuilder.h"
#include "WalkModel.h"

#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/StatisticsDataReport.h>

#include <QtTest/QtTest>

using namespace ZYN;
using namespace ZYN::WalkModel;

/// The walks without results: test plans and statistics reports.
class PlanWalkTest : public QObject {
    Q_OBJECT

private slots:
    void Plan();
    void PlanEarlyEnds();
    void Statistics_data();
    void Statistics();
    void StatisticsOnAnOpenedBuilder();
};

void PlanWalkTest::Plan()
{
    const Program program;
    program.Hide(u"G1"_s);
    program.Hide(u"M1"_s);
    RecordingBuilder builder;
    // The plan is opened also where the builder was open already.
    builder.opened = true;

    QVERIFY(CExportDirectorTestPlan().ExportTestPlan(program.program.data(), &builder));
    QCOMPARE(builder.calls, Lines(uR"(
        Open
        BeginTestProgram P
          BeginTestGroup G1
            BeginTestParameter A
            EndTestParameter A
            BeginTestParameter B
            EndTestParameter B
            BeginTestStep S1
              BeginTestMeasurement M1
              EndTestMeasurement M1
              BeginTestMeasurement M2
              EndTestMeasurement M2
            EndTestStep S1
            BeginTestStep S2
            EndTestStep S2
          EndTestGroup G1
          BeginTestGroup G2
            BeginTestStep S3
              BeginTestMeasurement M3
              EndTestMeasurement M3
            EndTestStep S3
          EndTestGroup G2
        EndTestProgram P
        Close)"_s));
    QVERIFY(!builder.opened);
}

void PlanWalkTest::PlanEarlyEnds()
{
    CExportDirectorTestPlan director;
    const Program program;
    RecordingBuilder builder;

    QVERIFY(!director.ExportTestPlan(nullptr, &builder));
    QVERIFY(!director.ExportTestPlan(program.program.data(), nullptr));
    QCOMPARE(builder.calls, QStringList());

    builder.refused = {u"BeginTestProgram P"_s};
    QVERIFY(director.ExportTestPlan(program.program.data(), &builder));
    QCOMPARE(builder.calls, Lines(u"Open\nBeginTestProgram P\nClose"_s));

    RecordingBuilder groupless;
    groupless.refused = {u"BeginTestGroup G1"_s, u"BeginTestGroup G2"_s};
    QVERIFY(director.ExportTestPlan(program.program.data(), &groupless));
    QCOMPARE(
        groupless.calls,
        Lines(u"Open\nBeginTestProgram P\nBeginTestGroup G1\nBeginTestGroup G2\nEndTestProgram P\nClose"_s));

    RecordingBuilder closed;
    closed.refused = {u"Open"_s};
    QVERIFY(!director.ExportTestPlan(program.program.data(), &closed));
    QCOMPARE(closed.calls, QStringList(u"Open"_s));
}

void PlanWalkTest::Statistics_data()
{
    QTest::addColumn<bool>("filled");
    QTest::addColumn<QStringList>("refused");
    QTest::addColumn<QString>("calls");

    QTest::newRow("everything") << true << QStringList() << uR"(
        Open
        BeginSession machine
        EndSession machine
        BeginProductType type
        EndProductType type
        BeginUnitUnderTest board
        EndUnitUnderTest board
        BeginTestProgram P
        EndTestProgram P
        BeginStatisticsData M1
        EndStatisticsData M1
        BeginStatisticsData M2
        EndStatisticsData M2
        Close)"_s;
    QTest::newRow("all refused") << true
                                 << QStringList({u"BeginSession machine"_s, u"BeginProductType type"_s,
                                                 u"BeginUnitUnderTest board"_s, u"BeginTestProgram P"_s,
                                                 u"BeginStatisticsData M1"_s, u"BeginStatisticsData M2"_s})
                                 << uR"(
        Open
        BeginSession machine
        BeginProductType type
        BeginUnitUnderTest board
        BeginTestProgram P
        BeginStatisticsData M1
        BeginStatisticsData M2
        Close)"_s;
    QTest::newRow("nothing there") << false << QStringList(u"BeginUnitUnderTest null"_s) << uR"(
        Open
        BeginSession null
        EndSession null
        BeginProductType null
        EndProductType null
        BeginUnitUnderTest null
        BeginTestProgram null
        EndTestProgram null
        Close)"_s;
    QTest::newRow("cannot be opened") << true << QStringList(u"Open"_s) << u"Open"_s;
}

void PlanWalkTest::Statistics()
{
    QFETCH(bool, filled);
    QFETCH(QStringList, refused);
    QFETCH(QString, calls);
    const Program program;
    StatisticsDataReport report;
    if (filled) {
        auto* const session = new ZYNSession;
        session->SetMachineName(u"machine"_s);
        report.SetSession(session);
        report.SetProductType(QSharedPointer<ProductType>::create(1, u"type"_s));
        report.SetUnitUnderTest(QSharedPointer<UnitUnderTest>::create(1, u"board"_s));
        report.SetTestProgram(program.program);
        report.AddTestData(new StatisticsData(program.components[u"M1"_s]));
        report.AddTestData(new StatisticsData(program.components[u"M2"_s]));
    }
    RecordingBuilder builder;
    builder.refused = QSet<QString>(refused.begin(), refused.end());

    QCOMPARE(CExportDirectorBase::ExportStatistics(&report, &builder), !refused.contains(u"Open"_s));
    QCOMPARE(builder.calls, Lines(calls));
    QVERIFY(!builder.opened);
}

void PlanWalkTest::StatisticsOnAnOpenedBuilder()
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

QTEST_GUILESS_MAIN(PlanWalkTest)
#include "PlanWalkTest.moc"
