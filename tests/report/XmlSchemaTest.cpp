#include "import/ReportFiles.h"
#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/Rows.h"
#include "support/SampleModels.h"

#include <examples/line_simulator/Line.h>

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtTest/QtTest>

using namespace ZYN;

namespace {

const QString schema = "report-1.4.0.rng";

QString FaultsOf(const QByteArray& document)
{
    return RelaxNg::Faults(schema, Files::Write(ReportFiles::ScratchFile(), document));
}

} // namespace

class XmlSchemaTest : public QObject {
    Q_OBJECT
private slots:
    void samples()
    {
        for (const QString& name : SampleModels::ReportCaseNames()) {
            const QByteArray document = ReportFiles::Write(*SampleModels::MakeReportCase(name)->test);
            QCOMPARE(FaultsOf(document), QString());
            QCOMPARE(FaultsOf(ReportFiles::Write(*ReportFiles::Read(document).test)), QString());
        }
    }

    void simulatedLine()
    {
        const Simulation::Line line({.seed = 3, .itemsPerPanel = 3});
        for (int panel = 1; panel <= 8; ++panel)
            QCOMPARE(FaultsOf(ReportFiles::Write(*line.MakePanel(panel))), QString());
    }

    void resultSetAlone()
    {
        const auto test = SampleModels::PassedUnit();
        CExportServiceReport service;
        service.SetFormat("XML");
        service.SetOutputFileName(ReportFiles::ScratchFile());
        QVERIFY(service.Export(test->GetResultSets().first()));
        QCOMPARE(RelaxNg::Faults(schema, ReportFiles::ScratchFile()), QString());
    }

    void damage_data()
    {
        const Rows<QByteArray, QByteArray, QString> row;
        row("other version", "Version=\"1.4.0\"", "Version=\"1.4.1\"");
        row("unknown element", "<Fixture>", "<Extra/><Fixture>");
        row("text between elements", "<Fixture>", "text<Fixture>");
        row("header missing", "<Property Name=\"OrderCode\">PO-4500012</Property>", "");
        row("header swapped", "Fixture>", "ProductionLot>");
        row("property twice", "<Property Name=\"Comment\"></Property>",
            "<Property Name=\"Comment\"></Property><Property Name=\"Comment\"></Property>");
        row("properties swapped", "<Property Name=\"LotNumber\">LOT-2024-077</Property>",
            "<Property Name=\"OrderCode\"/><Property Name=\"LotNumber\"/>");
        row("attribute missing", " Code=\"12\"", "");
        row("result code no number", "Result Code=\"1\"", "Result Code=\"PASS\"");
        row("number with a plus", "\"PanelIndex\">0<", "\"PanelIndex\">+0<");
        row("failed steps missing", "\"FailedSteps\">0<", "\"FailedSteps\"><");
        row("switch is no boolean", "\"Enabled\">1<", "\"Enabled\">true<");
        row("panel that is none", "\"MCP\">1<", "\"MCP\">0<");
        row("multi-panel incomplete", "<Property Name=\"MCPItems\">3</Property>", "");
        row("limit without operator", "<Property Name=\"CompLower\">==</Property>", "");
        row("unknown operator", "\"CompLower\">==<", "\"CompLower\">=<");
        row("value no number", ">5.01<", ">five<");
        row("value of a group", "Name=\"Value\"><", "Name=\"Value\">1<");
        row("value no hexadecimal", ">1f<", ">1g<", "/failed-unit");
        row("parameter after a step", "</TestGroup>", "<TestParameter/></TestGroup>");
        row("empty results", "<TestResults>", "<TestResults/><TestResults>");
        row("parameter with content", "<Parameter Revision=\"B\"/>",
            "<Parameter Revision=\"B\">x</Parameter>");
    }
    void damage()
    {
        const auto [before, after, sample] = CurrentRow<QByteArray, QByteArray, QString>();
        QByteArray document =
            Files::Content(Golden::Folder() + (sample.isEmpty() ? "/panel" : sample) + "/report.zyr");
        QCOMPARE(FaultsOf(document), QString());
        QVERIFY2(document.contains(before), "the damage is in what is written");
        document.replace(before, after);
        QVERIFY(RelaxNg::Refuses(schema, document, ReportFiles::ScratchFile()));
    }
};

QTEST_GUILESS_MAIN(XmlSchemaTest)
#include "XmlSchemaTest.moc"
