#include "support/Golden.h"
#include "support/SampleModels.h"

#include "import/ReportFiles.h"
#include "import/ReportStructure.h"

#include <examples/line_simulator/Line.h>

#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

QString FaultsOf(const QByteArray& document)
{
    QStringList lines;
    for (const ImportFinding& fault : ReportStructure::Faults(document))
        lines.append(u"%1: %2"_s.arg(fault.line).arg(fault.text));
    return lines.join(u'\n');
}

QByteArray Sample(const QString& name)
{
    return ReportFiles::Content(Golden::Folder() + u'/' + name + u"/report.zyr"_s);
}

} // namespace

class ReportStructureTest : public QObject {
    Q_OBJECT
private slots:
    void goodReports_data();
    void goodReports();
    void simulatedLine();
    void faults_data();
    void faults();
    void endsOnAnything();
};

void ReportStructureTest::goodReports_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : SampleModels::ReportCaseNames())
        QTest::newRow(qPrintable(name)) << name;
}

void ReportStructureTest::goodReports()
{
    QFETCH(QString, name);
    const QByteArray document = Sample(name);
    QVERIFY(document.contains("<TestReport"));
    QCOMPARE(FaultsOf(document), QString());
}

void ReportStructureTest::simulatedLine()
{
    const Simulation::Line line({.seed = 5, .itemsPerPanel = 2});
    for (int panel = 1; panel <= 8; ++panel)
        QCOMPARE(FaultsOf(ReportFiles::Write(*line.MakePanel(panel))), QString());
}

void ReportStructureTest::faults_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("faults");
    const auto row = [](const char* name, const char* before, const char* after, const char* faults) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << QString::fromLatin1(faults);
    };
    row("other root", "TestReport", "Report", "2: 'Report' in 'document' is unknown");
    row("version missing", " Version=\"1.4.0\"", "", "2: attribute 'Version' of 'TestReport' is missing");
    row("property missing", "<Property Name=\"SerialNo\">P0042</Property>", "",
        "13: 'SerialNo' is missing before 'Ident'");
    row("last property missing", "<Property Name=\"OrderCode\">PO-4500012</Property>", "",
        "32: 'OrderCode' is missing in 'ProductionLot'");
    row("property twice", "<Property Name=\"User\">operator1</Property>",
        "<Property Name=\"MachineName\"/><Property Name=\"User\"/>",
        "35: 'MachineName' in 'TestEnvironment' is not in its place");
    row("unknown property", "Name=\"User\"", "Name=\"Worker\"",
        "35: 'Worker' in 'TestEnvironment' is unknown\n36: 'User' is missing before 'Workspace'");
    row("attribute of a property missing",
        "\"ProductType\" Code=\"12\">Motor Controller MC-40</Property>\n   "
        "     <Property Name=\"PanelIndex\">0",
        "\"ProductType\">x</Property>\n        <Property Name=\"PanelIndex\">0",
        "14: attribute 'Code' of 'ProductType' is missing");
    row("unknown element", "<Fixture>", "<Extra><Fixture/></Extra><Fixture>",
        "38: 'Extra' in 'TestReport' is unknown");
    row("elements swapped", "<ProductionLot>", "<Fixture/><ProductionLot>",
        "29: 'Name' is missing in 'Fixture'\n29: 'Ident' is missing in 'Fixture'\n"
        "29: 'SerialNo' is missing in 'Fixture'\n29: 'Description' is missing in 'Fixture'\n"
        "29: 'ProductionLot' in 'TestReport' is not in its place\n"
        "33: 'TestEnvironment' in 'TestReport' is not in its place\n"
        "38: 'Fixture' in 'TestReport' is not in its place");
    row("element as a property", "<Fixture>", "<Property Name=\"Fixture\"/><Fixture>",
        "38: 'Fixture' in 'TestReport' is unknown");
    row("multi-panel incomplete", "<Property Name=\"MCPSplitting\">1</Property>", "",
        "27: 'MCPSplitting' is missing before 'MCPSplittingMap'");
    row("element in a property", ">operator1<", "><b/><", "35: 'b' in 'User' is unknown");
    row("no panel item", "<SubUnitTests>", "<SubUnitTests/><!--",
        "112: 'SubUnitTest' is missing in 'SubUnitTests'");
}

void ReportStructureTest::faults()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, faults);
    QByteArray document = Sample(u"panel"_s);
    QVERIFY(document.contains(before));
    if (after.endsWith("<!--"))
        document.replace("</SubUnitTests>", "-->");
    document.replace(before, after);
    QCOMPARE(FaultsOf(document), faults);
}

void ReportStructureTest::endsOnAnything()
{
    const QByteArray document = Sample(u"panel"_s);
    for (qsizetype size = 0; size < document.size(); size += 7)
        ReportStructure::Faults(document.first(size));
    QCOMPARE(FaultsOf(QByteArray("<a>").repeated(100000)), u"1: 'a' in 'document' is unknown"_s);
    const QByteArray unknown = "<TestReport Version='1'>" + QByteArray("<a/>").repeated(5000);
    QCOMPARE(ReportStructure::Faults(unknown).size(), 1000);
}

QTEST_GUILESS_MAIN(ReportStructureTest)
#include "ReportStructureTest.moc"
