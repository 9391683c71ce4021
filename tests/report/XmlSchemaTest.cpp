#include "import/ReportFiles.h"
#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/SampleModels.h"

#include <examples/line_simulator/Line.h>

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

const QString schema = u"report-1.4.0.rng"_s;

QString FaultsOf(const QByteArray& document)
{
    QFile file(ReportFiles::ScratchFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size())
        return file.errorString();
    file.close();
    return RelaxNg::Faults(schema, file.fileName());
}

} // namespace

class XmlSchemaTest : public QObject {
    Q_OBJECT
private slots:
    void samples_data();
    void samples();
    void simulatedLine();
    void resultSetAlone();
    void damage_data();
    void damage();
};

void XmlSchemaTest::samples_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : SampleModels::ReportCaseNames())
        QTest::newRow(qPrintable(name)) << name;
}

void XmlSchemaTest::samples()
{
    QFETCH(QString, name);
    const auto test = SampleModels::MakeReportCase(name)->test;
    const QByteArray document = ReportFiles::Write(*test);
    QVERIFY(!document.isEmpty());
    QCOMPARE(FaultsOf(document), QString());
    QCOMPARE(FaultsOf(ReportFiles::Write(*ReportFiles::Read(document).test)), QString());
}

void XmlSchemaTest::simulatedLine()
{
    const Simulation::Line line({.seed = 3, .itemsPerPanel = 3});
    for (int panel = 1; panel <= 8; ++panel)
        QCOMPARE(FaultsOf(ReportFiles::Write(*line.MakePanel(panel))), QString());
}

void XmlSchemaTest::resultSetAlone()
{
    const auto test = SampleModels::PassedUnit();
    CExportServiceReport service;
    service.SetFormat(u"XML"_s);
    service.SetOutputFileName(ReportFiles::ScratchFile());
    QVERIFY(service.Export(test->GetResultSets().first()));
    QCOMPARE(RelaxNg::Faults(schema, ReportFiles::ScratchFile()), QString());
}

void XmlSchemaTest::damage_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const char* before, const char* after,
                        const char* sample = "panel") {
        QTest::newRow(name) << QString::fromLatin1(sample) << QByteArray(before) << QByteArray(after);
    };
    row("other version", "Version=\"1.4.0\"", "Version=\"1.4.1\"");
    row("other root", "TestReport", "Report");
    row("unknown element", "<Fixture>", "<Extra/><Fixture>");
    row("text between elements", "<Fixture>", "text<Fixture>");
    row("header missing", "<Property Name=\"OrderCode\">PO-4500012</Property>", "");
    row("header swapped", "Fixture>", "ProductionLot>");
    row("property missing", "<Property Name=\"Comment\"></Property>", "");
    row("property twice", "<Property Name=\"Comment\"></Property>",
        "<Property Name=\"Comment\"></Property><Property Name=\"Comment\"></Property>");
    row("properties swapped",
        "<Property Name=\"Comment\"></Property>\n                    <Property "
        "Name=\"Attribute\"></Property>",
        "<Property Name=\"Attribute\"></Property><Property Name=\"Comment\"></Property>");
    row("attribute missing", " Code=\"12\"", "");
    row("unknown attribute", "<UUTTest>", "<UUTTest Extra=\"1\">");
    row("element in a property", ">Production<", "><b/><");
    row("result code no number", "Result Code=\"1\"", "Result Code=\"PASS\"");
    row("number with a plus", "\"PanelIndex\">0<", "\"PanelIndex\">+0<");
    row("number with a comma", ">4.75<", ">4,75<");
    row("number missing", "\"Duration\">12.5<", "\"Duration\"><");
    row("station 0", "\"StationID\">3<", "\"StationID\">0<");
    row("failed steps missing", "\"FailedSteps\">0<", "\"FailedSteps\"><");
    row("source line 0", "\"SourceLine\">1<", "\"SourceLine\">0<");
    row("switch is no boolean", "\"Enabled\">1<", "\"Enabled\">true<");
    row("panel that is none", "\"MCP\">1<", "\"MCP\">0<");
    row("multi-panel incomplete", "<Property Name=\"MCPItems\">3</Property>", "");
    row("limit without operator", "<Property Name=\"CompLower\">==</Property>", "");
    row("unknown operator", "\"CompLower\">==<", "\"CompLower\">=<");
    row("value no number", ">5.01<", ">five<");
    row("value of a group", "Name=\"Value\"><", "Name=\"Value\">1<");
    row("value no hexadecimal", ">1f<", ">1g<", "failed-unit");
    row("value no binary", ">101<", ">102<", "failed-unit");
    row("parameter after a step", "</TestGroup>", "<TestParameter/></TestGroup>");
    row("program twice", "</Testprogram>", "</Testprogram><Testprogram/>");
    row("empty results", "<TestResults>", "<TestResults/><TestResults>");
    row("nested panel item", "<SubUnitTest>", "<SubUnitTest><SubUnitTest/>");
    row("parameter with content", "<Parameter Revision=\"B\"/>", "<Parameter Revision=\"B\">x</Parameter>");
}

void XmlSchemaTest::damage()
{
    QFETCH(QString, sample);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QByteArray document = ReportFiles::Content(Golden::Folder() + u'/' + sample + u"/report.zyr"_s);
    QCOMPARE(FaultsOf(document), QString());
    QVERIFY2(document.contains(before), "the damage is in what is written");
    document.replace(before, after);
    QVERIFY(RelaxNg::Refuses(schema, document, ReportFiles::ScratchFile()));
}

QTEST_GUILESS_MAIN(XmlSchemaTest)
#include "XmlSchemaTest.moc"
