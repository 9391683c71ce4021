#include "RecordingBuilder.h"
#include "WalkModel.h"

#include "export/CExportDirectorReport.h"

#include <QtTest/QtTest>

using namespace ZYN;
using namespace ZYN::WalkModel;

namespace {

const QString HeaderCalls = uR"(
    BeginUUTTest U
      BeginUnitUnderTest board
      EndUnitUnderTest board
      BeginProductType type
      EndProductType type
      BeginProductionLot lot
      EndProductionLot lot
      BeginSession machine
      EndSession machine
      BeginFixture fixture
      EndFixture fixture
    EndUUTTest U
)"_s;

} // namespace

class ReportWalkTest : public QObject {
    Q_OBJECT

private slots:
    void ResultSet_data();
    void ResultSet();
    void ResultSetLeavesAnOpenedBuilderOpen();
    void NothingToWalk();
    void Filter_data();
    void Filter();
    void Unit();
    void UnitHeaderOfABuilderThatCloses();
    void PanelItems();
    void UnitWithASetWithoutProgram_data();
    void UnitWithASetWithoutProgram();
};

void ReportWalkTest::ResultSet_data()
{
    QTest::addColumn<QStringList>("withoutResult");
    QTest::addColumn<QString>("refused");
    QTest::addColumn<QString>("calls");

    const QString secondGroup = u"BeginTestGroup G2(G2)\nBeginTestStep S3(S3)\nBeginTestMeasurement M3(M3)\n"
                                "EndTestMeasurement M3\nEndTestStep S3\nEndTestGroup G2\n"_s;
    const QString parameters = u"BeginTestParameter A(A)\nEndTestParameter A\n"
                               "BeginTestParameter B(B)\nEndTestParameter B\n"_s;
    const QString steps = u"BeginTestStep S1(S1)\n"
                          "BeginTestMeasurement M1(M1)\nEndTestMeasurement M1\n"
                          "BeginTestMeasurement M2(M2)\nEndTestMeasurement M2\nEndTestStep S1\n"
                          "BeginTestStep S2(S2)\nEndTestStep S2\n"_s;
    const QString begin = u"Open\nBeginTestResultSet #7\n"_s;
    const QString beginGroup = begin + u"BeginTestProgram P(P)\nBeginTestGroup G1(G1)\n"_s;
    const QString endGroup = u"EndTestGroup G1\n"_s;
    const QString end = u"EndTestResultSet #7\nClose"_s;
    const QString endProgram = u"EndTestProgram P\n"_s + end;
    const QString whole = beginGroup + parameters + steps + endGroup + secondGroup + endProgram;

    const QStringList all;
    QTest::newRow("whole") << all << QString() << whole;
    QTest::newRow("set refused") << all << u"BeginTestResultSet #7"_s << whole;
    QTest::newRow("program without result") << QStringList{u"P"_s} << QString() << begin + end;
    QTest::newRow("program refused") << all << u"BeginTestProgram P(P)"_s
                                     << begin + u"BeginTestProgram P(P)\n"_s + end;
    QTest::newRow("group refused") << all << u"BeginTestGroup G1(G1)"_s
                                   << beginGroup + secondGroup + endProgram;
    QTest::newRow("parameter refused")
        << all << u"BeginTestParameter A(A)"_s << QString(whole).remove(u"EndTestParameter A\n"_s);
    QTest::newRow("step refused") << all << u"BeginTestStep S1(S1)"_s
                                  << beginGroup + parameters +
                                         u"BeginTestStep S1(S1)\nBeginTestStep S2(S2)\nEndTestStep S2\n"_s +
                                         endGroup + secondGroup + endProgram;
    QTest::newRow("measurement refused")
        << all << u"BeginTestMeasurement M1(M1)"_s << QString(whole).remove(u"EndTestMeasurement M1\n"_s);
    QString resultless = whole;
    for (const QString& name : {u"G1"_s, u"A"_s, u"S1"_s, u"M2"_s})
        resultless.replace(u"(%1)"_s.arg(name), u"(none)"_s);
    QTest::newRow("components without result")
        << QStringList{u"G1"_s, u"A"_s, u"S1"_s, u"M2"_s} << QString() << resultless;
}

void ReportWalkTest::ResultSet()
{
    QFETCH(QStringList, withoutResult);
    QFETCH(QString, refused);
    QFETCH(QString, calls);
    const Program program;
    const std::unique_ptr<TestResultSet> set(program.Run(7, withoutResult));
    RecordingBuilder builder;
    builder.refused = {refused};

    QVERIFY(CExportDirectorReport().ExportTestResultSet(set.get(), &builder));
    QCOMPARE(builder.calls, Lines(calls));
}

void ReportWalkTest::ResultSetLeavesAnOpenedBuilderOpen()
{
    const std::unique_ptr<TestResultSet> set(Program().Run(7, {u"P"_s}));
    RecordingBuilder builder;
    builder.opened = true;

    QVERIFY(CExportDirectorReport().ExportTestResultSet(set.get(), &builder));
    QCOMPARE(builder.calls, QStringList({u"BeginTestResultSet #7"_s, u"EndTestResultSet #7"_s}));
    QVERIFY(builder.opened);
}

void ReportWalkTest::NothingToWalk()
{
    CExportDirectorReport director;
    const std::unique_ptr<TestResultSet> set(Program().Run(7));
    TestResultSet withoutProgram({}, {});
    UUTTest test(1, u"U"_s);
    RecordingBuilder builder;

    QVERIFY(!director.ExportTestResultSet(nullptr, &builder));
    QVERIFY(!director.ExportTestResultSet(set.get(), nullptr));
    QVERIFY(!director.ExportTestResultSet(&withoutProgram, &builder));
    QVERIFY(!director.ExportUUTTest(nullptr, &builder));
    QVERIFY(!director.ExportUUTTest(&test, nullptr));
    QCOMPARE(builder.calls, QStringList());

    builder.refused = {u"Open"_s};
    QVERIFY(!director.ExportTestResultSet(set.get(), &builder));
    QVERIFY(!director.ExportUUTTest(&test, &builder));
    QCOMPARE(builder.calls, QStringList({u"Open"_s, u"Open"_s}));
}

void ReportWalkTest::Filter_data()
{
    QTest::addColumn<QString>("hidden");
    QTest::addColumn<QString>("missing");

    QTest::newRow("group") << u"G1"_s << u"G1 A B S1 M1 M2 S2"_s;
    QTest::newRow("parameter") << u"A"_s << u"A"_s;
    QTest::newRow("step") << u"S1"_s << u"S1 M1 M2"_s;
    QTest::newRow("measurement") << u"M1"_s << u"M1"_s;
    QTest::newRow("program is not filtered") << u"P"_s << QString();
}

void ReportWalkTest::Filter()
{
    QFETCH(QString, hidden);
    QFETCH(QString, missing);
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
    for (const QString& name : missing.split(u' ', Qt::SkipEmptyParts)) {
        expected.removeIf([&](const QString& line) {
            return line.endsWith(u"(%1)"_s.arg(name)) || line.endsWith(u' ' + name);
        });
    }
    QCOMPARE(filtered.calls, expected);
    QVERIFY(!director.AcceptComponent(nullptr));
}

void ReportWalkTest::Unit()
{
    const Program program;
    UUTTest test(1, u"U"_s);
    FillHeader(test);
    test.AssignResultSet(program.Run(1, {u"P"_s}));
    test.AssignResultSet(program.Run(2, {u"P"_s}));
    const QStringList walk = Lines(HeaderCalls + uR"(
        BeginTestResults
          BeginTestResultSet #1
          EndTestResultSet #1
          BeginTestResultSet #2
          EndTestResultSet #2
        EndTestResults)"_s);

    RecordingBuilder builder;
    QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &builder));
    QCOMPARE(builder.calls, QStringList(u"Open"_s) + walk + QStringList(u"Close"_s));

    RecordingBuilder opened;
    opened.opened = true;
    // None of these answers suppresses anything.
    opened.refused = {u"BeginUUTTest U"_s,         u"BeginUnitUnderTest board"_s, u"BeginProductType type"_s,
                      u"BeginProductionLot lot"_s, u"BeginSession machine"_s,     u"BeginFixture fixture"_s,
                      u"BeginTestResults"_s,       u"BeginTestResultSet #1"_s};
    QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &opened));
    QCOMPARE(opened.calls, walk);
    QVERIFY(opened.opened);
}

void ReportWalkTest::UnitHeaderOfABuilderThatCloses()
{
    UUTTest test(1, u"U"_s);
    FillHeader(test);
    RecordingBuilder builder;
    builder.closing = {u"EndProductType type"_s};

    QVERIFY(CExportDirectorReport().ExportUUTTest(&test, &builder));
    QCOMPARE(builder.calls, Lines(uR"(
        Open
        BeginUUTTest U
          BeginUnitUnderTest board
          EndUnitUnderTest board
          BeginProductType type
          EndProductType type
        EndUUTTest U
        Close)"_s));
}

void ReportWalkTest::PanelItems()
{
    const Program program;
    UUTTest panel(1, u"U"_s);
    FillHeader(panel);
    const auto item = QSharedPointer<UUTTest>::create(2, u"I1"_s);
    FillHeader(*item);
    item->AssignResultSet(program.Run(1, {u"P"_s}));
    // Items of items are not reported.
    item->AddUUTTest(QSharedPointer<UUTTest>::create(4, u"deeper"_s));
    panel.AddUUTTest(item);
    panel.AddUUTTest(QSharedPointer<UUTTest>::create(3, u"I2"_s));

    RecordingBuilder builder;
    QVERIFY(CExportDirectorReport().ExportUUTTest(&panel, &builder));
    QCOMPARE(builder.calls, Lines(u"Open\n"_s + HeaderCalls + uR"(
        BeginSubUnitTests
          BeginSubUnitTest
            BeginUUTTest I1
              BeginUnitUnderTest board
              EndUnitUnderTest board
              BeginTestResults
                BeginTestResultSet #1
                EndTestResultSet #1
              EndTestResults
            EndUUTTest I1
          EndSubUnitTest
          BeginSubUnitTest
            BeginUUTTest I2
            EndUUTTest I2
          EndSubUnitTest
        EndSubUnitTests
        Close)"_s));
}

void ReportWalkTest::UnitWithASetWithoutProgram_data()
{
    QTest::addColumn<bool>("inItem");
    QTest::addColumn<QString>("calls");

    const QString results = u"BeginTestResults\nBeginTestResultSet #1\nEndTestResultSet #1"_s;
    QTest::newRow("unit") << false << u"Open\nBeginUUTTest U\nEndUUTTest U\n"_s + results;
    QTest::newRow("panel item")
        << true
        << u"Open\nBeginUUTTest U\nEndUUTTest U\nBeginSubUnitTests\nBeginSubUnitTest\nBeginUUTTest I\n"_s +
               results;
}

void ReportWalkTest::UnitWithASetWithoutProgram()
{
    QFETCH(bool, inItem);
    QFETCH(QString, calls);
    const Program program;
    UUTTest test(1, u"U"_s);
    const auto item = QSharedPointer<UUTTest>::create(2, u"I"_s);
    test.AddUUTTest(item);
    test.AddUUTTest(QSharedPointer<UUTTest>::create(3, u"never reached"_s));
    UUTTest& broken = inItem ? *item : test;
    broken.AssignResultSet(program.Run(1, {u"P"_s}));
    broken.AssignResultSet(new TestResultSet({}, {}));
    broken.AssignResultSet(program.Run(3));

    RecordingBuilder builder;
    QVERIFY(!CExportDirectorReport().ExportUUTTest(&test, &builder));
    QCOMPARE(builder.calls, Lines(calls));
    QVERIFY(builder.opened);
}

QTEST_GUILESS_MAIN(ReportWalkTest)
#include "ReportWalkTest.moc"
