#include "import/ReportFiles.h"
#include "support/Golden.h"
#include "support/Model.h"
#include "support/RelaxNg.h"
#include "support/SampleModels.h"
#include "support/Test.h"

#include "kinds/ReportStructure.h"

#include <examples/line_simulator/Line.h>

using namespace ZYN;

namespace {

/// What the schema has against a document.
QString Faults(const QByteArray& document)
{
    return RelaxNg::Faults("report-1.4.0.rng", Files::Write(ReportFiles::ScratchFile(), document));
}

/// What the tool's checker has against it, with the lines.
QString StructureFaults(const QByteArray& document)
{
    QStringList lines;
    for (const ImportFinding& fault : Tool::ReportStructure::Findings(document))
        lines.append(QString("%1: %2").arg(fault.line).arg(fault.text));
    return lines.join(u'\n');
}

QByteArray Sample(const QString& name)
{
    return Files::Content(Golden::Folder() + u'/' + name + "/report.zyr");
}

} // namespace

/// The structure of XML reports: what the schema says and what `ReportStructure` says, which shares nothing
/// with it.
class XmlSchemaTest : public QObject {
    Q_OBJECT
private slots:
    void Samples()
    {
        for (const QString& name : SampleModels::ReportCaseNames()) {
            const QByteArray document = ReportFiles::Write(*SampleModels::MakeReportCase(name)->test);
            QCOMPARE(Faults(document), QString());
            QCOMPARE(StructureFaults(document), QString());
            QCOMPARE(Faults(ReportFiles::Write(*ReportFiles::Read(document).test)), QString());
        }
    }

    void SimulatedLine()
    {
        const Simulation::Line line({.seed = 3, .itemsPerPanel = 3});
        for (int panel = 1; panel <= 8; ++panel)
            QCOMPARE(Faults(ReportFiles::Write(*line.MakePanel(panel))), QString());
    }

    void ResultSetAlone()
    {
        const auto test = SampleModels::PassedUnit();
        CExportServiceReport service;
        service.SetFormat("XML");
        service.SetOutputFileName(ReportFiles::ScratchFile());
        QVERIFY(service.Export(test->GetResultSets().first()));
        QCOMPARE(Faults(Files::Content(ReportFiles::ScratchFile())), QString());
    }

    void Damage_data()
    {
        // The last column: what the checker says, too; nothing for what it leaves to the schema.
        const Rows<QByteArray, QByteArray, QString> row;
        row("other root", "TestReport", "Report", "2: 'Report' in 'document' is unknown");
        row("other version", "Version=\"1.4.0\"", "Version=\"1.4.1\"");
        row("version missing", " Version=\"1.4.0\"", "", "2: attribute 'Version' of 'TestReport' is missing");
        row("unknown element", "<Fixture>", "<Extra><Fixture/></Extra><Fixture>",
            "38: 'Extra' in 'TestReport' is unknown");
        row("element as a property", "<Fixture>", "<Property Name=\"Fixture\"/><Fixture>",
            "38: 'Fixture' in 'TestReport' is unknown");
        row("element in a property", ">operator1<", "><b/><", "35: 'b' in 'User' is unknown");
        row("elements swapped", "<Fixture>", "<TestResults/><Fixture>",
            "38: 'TestResultSet' is missing in 'TestResults'\n38: 'Fixture' in 'TestReport' is not in its "
            "place\n44: 'TestResults' in 'TestReport' is not in its place");
        row("header swapped", "Fixture>", "ProductionLot>");
        row("text between elements", "<Fixture>", "text<Fixture>");
        row("property missing", "<Property Name=\"SerialNo\">P0042</Property>", "",
            "13: 'SerialNo' is missing before 'Ident'");
        row("last property missing", "<Property Name=\"OrderCode\">PO-4500012</Property>", "",
            "32: 'OrderCode' is missing in 'ProductionLot'");
        row("property twice", "<Property Name=\"User\">operator1</Property>",
            "<Property Name=\"MachineName\"/><Property Name=\"User\"/>",
            "35: 'MachineName' in 'TestEnvironment' is not in its place");
        row("unknown property", "Name=\"User\"", "Name=\"Worker\"",
            "35: 'Worker' in 'TestEnvironment' is unknown\n36: 'User' is missing before 'Workspace'");
        row("properties swapped", "<Property Name=\"LotNumber\">LOT-2024-077</Property>",
            "<Property Name=\"OrderCode\"/><Property Name=\"LotNumber\"/>");
        row("attribute missing",
            "\"ProductType\" Code=\"12\">Motor Controller MC-40</Property>\n        <Property "
            "Name=\"PanelIndex\">0",
            "\"ProductType\">x</Property>\n        <Property Name=\"PanelIndex\">0",
            "14: attribute 'Code' of 'ProductType' is missing");
        row("multi-panel incomplete", "<Property Name=\"MCPSplitting\">1</Property>", "",
            "27: 'MCPSplitting' is missing before 'MCPSplittingMap'");
        row("panel that is none", "\"MCP\">1<", "\"MCP\">0<");
        row("no panel item", "<SubUnitTests>", "<SubUnitTests/><!--",
            "112: 'SubUnitTest' is missing in 'SubUnitTests'");
        row("result code no number", "Result Code=\"1\"", "Result Code=\"PASS\"");
        row("number with a plus", "\"PanelIndex\">0<", "\"PanelIndex\">+0<");
        row("failed steps missing", "\"FailedSteps\">0<", "\"FailedSteps\"><");
        row("switch is no boolean", "\"Enabled\">1<", "\"Enabled\">true<");
        row("limit without operator", "<Property Name=\"CompLower\">==</Property>", "");
        row("unknown operator", "\"CompLower\">==<", "\"CompLower\">=<");
        row("value no number", ">5.01<", ">five<");
        row("value no hexadecimal", ">1f<", ">1g<");
        row("value of a group", "Name=\"Value\"><", "Name=\"Value\">1<");
        row("parameter after a step", "</TestGroup>", "<TestParameter/></TestGroup>");
        row("empty results", "<TestResults>", "<TestResults/><TestResults>");
        row("parameter with content", "<Parameter Revision=\"B\"/>",
            "<Parameter Revision=\"B\">x</Parameter>");
    }
    void Damage()
    {
        const auto [before, after, structureFaults] = CurrentRow<QByteArray, QByteArray, QString>();
        QByteArray document = Sample(Sample("panel").contains(before) ? "panel" : "failed-unit");
        QVERIFY2(document.contains(before), "the damage is in what is written");
        if (after.endsWith("<!--"))
            document.replace("</SubUnitTests>", "-->");
        document.replace(before, after);
        QVERIFY(RelaxNg::Refuses("report-1.4.0.rng", document, ReportFiles::ScratchFile()));
        if (!structureFaults.isEmpty())
            QCOMPARE(StructureFaults(document), structureFaults);
    }

    /// A key that was no name: the document is as the schema has it.
    void ForgedParameter()
    {
        const QByteArray key = "Revision=\"B\"/><Parameter a=\"\" b";
        const QByteArray document = Sample("panel").replace("Revision=\"B\"/", key + "=\"B\"/");
        QCOMPARE(Faults(document), QString());
        QCOMPARE(StructureFaults(document),
                 QString("22: 'Parameter' has not one attribute: the parameter's key was no name"));
    }

    void DamageInOtherFiles_data()
    {
        const Rows<QString, QString, QByteArray, QByteArray> row;
        const QString lot = "statistics/lot.xml";
        const QString plan = "test-plan/board.tpl";
        row("statistics: version", "statistics-1.0.2", lot, "Version=\"1.0.2\"", "Version=\"1.0.3\"");
        row("statistics: twice", "statistics-1.0.2", lot, "Name=\"Pass\"", "Name=\"Fail\"");
        row("statistics: no unit", "statistics-1.0.2", lot, "<Property Name=\"Unit\">V</Property>", "");
        row("statistics: type", "statistics-1.0.2", lot, "Type=\"8\"", "Type=\"Real\"");
        row("plan: version", "test-plan-3.0.0", plan, "Version=\"3.0.0\"", "Version=\"3.0\"");
        row("plan: no unit", "test-plan-3.0.0", plan, " Unit=\"V\"", "");
        row("plan: property", "test-plan-3.0.0", plan, "Name=\"Lower\"", "Name=\"LogInReport\"");
        row("plan: boolean", "test-plan-3.0.0", plan, ">true</Property>", ">1</Property>");
        row("plan: element inside", "test-plan-3.0.0", plan, ">3</Attribute>", "><b/></Attribute>");
        row("plan: another version", "test-plan-2.0.0", plan, "", "");
    }
    void DamageInOtherFiles()
    {
        const auto [schema, file, before, after] = CurrentRow<QString, QString, QByteArray, QByteArray>();
        const QByteArray good = Files::Content(Golden::Folder() + u'/' + file);
        const QByteArray damaged = QByteArray(good).replace(before, after);
        QVERIFY(damaged != good || before.isEmpty());
        QVERIFY(RelaxNg::Refuses(schema + ".rng", damaged, ReportFiles::ScratchFile()));
    }

    void CheckerEndsOnAnything()
    {
        const QByteArray document = Sample("panel");
        for (qsizetype size = 0; size < document.size(); size += 7)
            Tool::ReportStructure::Findings(document.first(size));
        QCOMPARE(StructureFaults(QByteArray("<a>").repeated(100000)), "1: 'a' in 'document' is unknown");
        const QByteArray unknown = "<TestReport Version='1'>" + QByteArray("<a/>").repeated(5000);
        QCOMPARE(Tool::ReportStructure::Findings(unknown).size(), 1000);
    }
};

QTEST_GUILESS_MAIN(XmlSchemaTest)
#include "XmlSchemaTest.moc"
