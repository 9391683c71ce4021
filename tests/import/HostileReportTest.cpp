#include "ReportPieces.h"
#include "support/SampleModels.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using namespace ZYN;
using namespace ZYN::ReportFiles;
using namespace Qt::StringLiterals;

namespace {

QByteArray Repeated(const char* text, int times)
{
    return QByteArray(text).repeated(times);
}

/// A small report with every kind of element.
QByteArray SmallReport()
{
    const QByteArray program =
        "<Testprogram ID='1' Name='P' Type='1'><Result Code='1'/><TestGroup ID='2' Name='G' Type='2'>"
        "<Result Code='1'/><TestParameter ID='9' Name='A' Type='8'/><TestStep ID='3' Name='S' Type='3'>"
        "<Result Code='1'/>" +
        Measurement(8, Limits(8, "Code='1' Factor='-3'", Property("Lower", "1")), "12.3") +
        Measurement(9, Limits(9, "Code='0' Factor='0'"), "&lt;&#65;") +
        "</TestStep></TestGroup></Testprogram>";
    const QByteArray results = "<TestResults><TestResultSet>" + Property("StationID", "7") +
                               Property("StationDescription", "x") + program +
                               "</TestResultSet></TestResults>";
    const QByteArray unit = "<UnitUnderTest>" + Property("Name", "n") +
                            "<Property Name='ProductType' Code='1'>t</Property></UnitUnderTest>";
    const QByteArray test = "<UUTTest>" + Property("Result", "1") + "</UUTTest>";
    return Report(test + unit + "<ProductType ID='1'>" + Property("MCPSplittingMap", "1_1") +
                  "<Parameter a='b'/></ProductType><ProductionLot>" + Property("LotNumber", "L") +
                  "</ProductionLot><TestEnvironment>" + Property("User", "u") +
                  "</TestEnvironment><Fixture>" + Property("Name", "f") + "</Fixture>" + results +
                  "<SubUnitTests><SubUnitTest>" + test + unit + results + "</SubUnitTest></SubUnitTests>");
}

} // namespace

/// Under the address sanitizer these tests also find what is freed twice, used late or never freed.
class HostileReportTest : public QObject {
    Q_OBJECT
private slots:
    void truncatedAtEveryByte();
    void shuffledLines();
    void outOfPlace_data();
    void outOfPlace();
    void deeplyNested_data();
    void deeplyNested();
    void declarations_data();
    void declarations();
    void findingsAreLimited();
    void nothingIsKeptOfAnEarlierDocument();
};

void HostileReportTest::truncatedAtEveryByte()
{
    const QByteArray whole = SmallReport();
    QCOMPARE(Read(whole).Texts(), QString());
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const Reading reading = Read(whole.first(size));
        QVERIFY(reading.imported);
        QVERIFY2(!reading.findings.isEmpty(), whole.first(size));
    }
}

void HostileReportTest::shuffledLines()
{
    // Elements in any order, missing, twice: whatever comes out can be written again.
    QByteArrayList lines = Write(*SampleModels::Panel()).split('\n');
    QVERIFY(lines.size() > 300);
    QRandomGenerator random(20240305);
    for (int round = 0; round < 300; ++round) {
        QByteArrayList shuffled = lines;
        for (int change = 0; change < 1 + round % 20; ++change) {
            const auto from = qsizetype(random.bounded(int(shuffled.size())));
            const auto to = qsizetype(random.bounded(int(shuffled.size())));
            switch (random.bounded(3)) {
            case 0:
                shuffled.move(from, to);
                break;
            case 1:
                shuffled.insert(to, shuffled.at(from));
                break;
            default:
                shuffled.removeAt(from);
            }
        }
        const Reading reading = Read(shuffled.join('\n'));
        QVERIFY(reading.imported);
        Write(*reading.test);
    }
}

void HostileReportTest::outOfPlace_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("text");
    const auto inSet = [](const QByteArray& content) {
        return Report("<TestResults><TestResultSet>" + content + "</TestResultSet></TestResults>");
    };
    const auto inProgram = [&](const QByteArray& content) {
        return inSet("<Testprogram ID='1' Name='P' Type='1'>" + content + "</Testprogram>");
    };
    const QByteArray step = "<TestStep ID='3' Name='S' Type='3'><Result Code='1'/></TestStep>";
    QTest::newRow("set without a program") << inSet(QByteArray()) << QString();
    QTest::newRow("empty program") << inProgram(QByteArray()) << QString();
    QTest::newRow("step before any group")
        << inProgram("<TestGroup ID='2' Name='G' Type='2'>" + step + "</TestGroup>")
        << u"step 'S' before any group, in no program"_s;
    QTest::newRow("step in a program")
        << inProgram(step) << u"element 'TestStep' is not expected in 'Testprogram', skipped"_s;
    QTest::newRow("measurement before any step")
        << inProgram("<TestGroup ID='2' Name='G' Type='2'><Result/><TestStep ID='3' Name='S' Type='3'>" +
                     Measurement(8, QByteArray(), "1") + "</TestStep></TestGroup>")
        << u"'' is not an integer of 32 bits, read as 0; measurement 'M' before any step, in no program"_s;
    QTest::newRow("limits in a group")
        << inProgram("<TestGroup ID='2' Name='G' Type='2'><Limits Type='8'/></TestGroup>")
        << u"element 'Limits' is not expected in 'TestGroup', skipped"_s;
    QTest::newRow("result set in a result set")
        << inSet("<TestResultSet><Testprogram/></TestResultSet>")
        << u"element 'TestResultSet' is not expected in 'TestResultSet', skipped"_s;
    QTest::newRow("program outside") << Report("<Testprogram ID='1' Name='P' Type='1'/>")
                                     << u"element 'Testprogram' is not expected here, passed over"_s;
    QTest::newRow("result outside") << Report("<Result Code='1'/>")
                                    << u"element 'Result' is not expected here, passed over"_s;
    QTest::newRow("serial number before the name")
        << Report("<UnitUnderTest>" + Property("SerialNo", "1") + "</UnitUnderTest>")
        << u"'SerialNo' of a unit that has no name yet, not read"_s;
    QTest::newRow("order before the lot")
        << Report("<ProductionLot>" + Property("OrderCode", "1") + "</ProductionLot>")
        << u"order code of a lot that has no number yet, not read"_s;
    QTest::newRow("description before the station")
        << inSet(Property("StationDescription", "x"))
        << u"property 'StationDescription' of 'TestResultSet' is unknown, not read"_s;
    QTest::newRow("property without a name") << Report("<UUTTest><Property>x</Property></UUTTest>")
                                             << u"property '' of 'UUTTest' is unknown, not read"_s;
    QTest::newRow("panel in a panel item")
        << Report("<SubUnitTests><SubUnitTest><SubUnitTests/></SubUnitTest></SubUnitTests>")
        << u"element 'SubUnitTests' is not expected in 'SubUnitTest', skipped"_s;
}

void HostileReportTest::outOfPlace()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, text);
    const Reading reading = Read(document);
    QVERIFY(reading.imported);
    QCOMPARE(reading.Texts(), text);
    Write(*reading.test);
}

void HostileReportTest::deeplyNested_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("tag");
    QTest::newRow("unknown") << QByteArray() << QByteArray("<a>");
    QTest::newRow("known") << QByteArray() << QByteArray("<SubUnitTests>");
    QTest::newRow("properties") << QByteArray("<UUTTest>") << QByteArray("<Property Name='Result'>");
    QTest::newRow("in a handler") << QByteArray("<TestResults><TestResultSet><Testprogram><TestGroup>")
                                  << QByteArray("<TestStep>");
}

void HostileReportTest::deeplyNested()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, tag);
    const Reading reading = Read(Report(before + tag.repeated(1000000)));
    QVERIFY(reading.imported);
    QVERIFY(reading.findings.size() <= 1001);
}

void HostileReportTest::declarations_data()
{
    QTest::addColumn<QByteArray>("document");
    const auto row = [](const char* name, const QByteArray& declarations, const QByteArray& description) {
        QTest::newRow(name) << "<!DOCTYPE TestReport [" + declarations + "]>" +
                                   Report("<UUTTest>" + Property("Description", description) + "</UUTTest>");
    };
    const QByteArray kilobyte = "<!ENTITY e '" + QByteArray(1000, 'x') + "'>";
    row("flat references", kilobyte, Repeated("&e;", 100000));
    row("nested references",
        kilobyte + "<!ENTITY f '&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;'><!ENTITY g '&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;'>",
        Repeated("&g;", 1000));
    row("unused", "<!ENTITY e 'x'>", "text");
    row("empty", "<!ENTITY e ''>", "&e;");
    row("file", "<!ENTITY e SYSTEM 'file:///etc/hostname'>", "&e;");
    row("parameter", "<!ENTITY % p '<!-- c -->'>" + Repeated("%p;", 1000), "text");
    row("parameter that declares", "<!ENTITY % p '<!ENTITY e \"x\">'>%p;", "&e;");
}

void HostileReportTest::declarations()
{
    QFETCH(QByteArray, document);
    const Reading reading = Read(document);
    QVERIFY(reading.imported);
    QCOMPARE(reading.findings.size(), 1);
    // Nothing of the content was looked at, so nothing was expanded.
    QCOMPARE(reading.test->GetResultDescription(), QString());
}

void HostileReportTest::findingsAreLimited()
{
    const Reading reading = Read(Report(Repeated("<unknown/>", 5000)));
    QCOMPARE(reading.findings.size(), 1001);
    QCOMPARE(reading.findings.last().text, u"there is more, which is not listed"_s);
}

void HostileReportTest::nothingIsKeptOfAnEarlierDocument()
{
    // A step with no group of its own must not end up in the test of an earlier import.
    CImportServiceReport service;
    const Reading first = Read(StepReport(Measurement(8, QByteArray(), "1")), service);
    const Reading second =
        Read(Report("<TestResults><TestResultSet><Testprogram ID='1' Name='P' Type='1'>"
                    "<TestGroup ID='2' Name='G' Type='2'><TestStep ID='9' Name='T' Type='3'>"
                    "<Result Code='1'/></TestStep></TestGroup></Testprogram></TestResultSet></TestResults>"),
             service);
    const auto group = first.test->GetResultSets().first()->GetTestProgram()->GetGroupForIndex(0);
    QCOMPARE(group->GetStepCount(), 1);
    QCOMPARE(second.test->GetResultSets().first()->GetResults().size(), 1);
}

QTEST_GUILESS_MAIN(HostileReportTest)
#include "HostileReportTest.moc"
