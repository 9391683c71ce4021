#include "support/Golden.h"
#include "support/Rows.h"
#include "support/SampleModels.h"

#include "import/ReportFiles.h"
#include "import/ReportStructure.h"

#include <QtTest/QtTest>

using namespace ZYN;

namespace {

QString FaultsOf(const QByteArray& document)
{
    QStringList lines;
    for (const ImportFinding& fault : ReportStructure::Faults(document))
        lines.append(QString("%1: %2").arg(fault.line).arg(fault.text));
    return lines.join(u'\n');
}

QByteArray Sample(const QString& name)
{
    return Files::Content(Golden::Folder() + u'/' + name + "/report.zyr");
}

} // namespace

class ReportStructureTest : public QObject {
    Q_OBJECT
private slots:
    void goodReports()
    {
        for (const QString& name : SampleModels::ReportCaseNames()) {
            const QByteArray document = Sample(name);
            QVERIFY(document.contains("<TestReport"));
            QCOMPARE(FaultsOf(document), QString());
        }
    }

    void faults_data()
    {
        const Rows<QByteArray, QByteArray, QString> row;
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
        row("elements swapped", "<Fixture>", "<TestResults/><Fixture>",
            "38: 'TestResultSet' is missing in 'TestResults'\n38: 'Fixture' in 'TestReport' is not in its "
            "place\n"
            "44: 'TestResults' in 'TestReport' is not in its place");
        row("element as a property", "<Fixture>", "<Property Name=\"Fixture\"/><Fixture>",
            "38: 'Fixture' in 'TestReport' is unknown");
        row("multi-panel incomplete", "<Property Name=\"MCPSplitting\">1</Property>", "",
            "27: 'MCPSplitting' is missing before 'MCPSplittingMap'");
        row("element in a property", ">operator1<", "><b/><", "35: 'b' in 'User' is unknown");
        row("no panel item", "<SubUnitTests>", "<SubUnitTests/><!--",
            "112: 'SubUnitTest' is missing in 'SubUnitTests'");
    }
    void faults()
    {
        const auto [before, after, faults] = CurrentRow<QByteArray, QByteArray, QString>();
        QByteArray document = Sample("panel");
        QVERIFY(document.contains(before));
        if (after.endsWith("<!--"))
            document.replace("</SubUnitTests>", "-->");
        document.replace(before, after);
        QCOMPARE(FaultsOf(document), faults);
    }

    void endsOnAnything()
    {
        const QByteArray document = Sample("panel");
        for (qsizetype size = 0; size < document.size(); size += 7)
            ReportStructure::Faults(document.first(size));
        QCOMPARE(FaultsOf(QByteArray("<a>").repeated(100000)), "1: 'a' in 'document' is unknown");
        const QByteArray unknown = "<TestReport Version='1'>" + QByteArray("<a/>").repeated(5000);
        QCOMPARE(ReportStructure::Faults(unknown).size(), 1000);
    }
};

QTEST_GUILESS_MAIN(ReportStructureTest)
#include "ReportStructureTest.moc"
