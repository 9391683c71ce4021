#include "ReportPieces.h"
#include "support/Model.h"
#include "support/Test.h"

using namespace ZYN;
using namespace ZYN::ReportFiles;

class ReportImportTest : public QObject {
    Q_OBJECT
private slots:
    /// What is told of a unit; texts that come back as they were written are seen in the round trip.
    void Header()
    {
        const Reading reading = Read(Report(
            "<UnitUnderTest>" + Property("Name", "unit") +
            "<Property Name='ProductType' Code='12'>type</Property></UnitUnderTest><ProductType ID='99'>" +
            Property("Name", "other") + "<Parameter key='value'/>" + Property("MCP", "1") +
            Property("MCPSplittingMap", "10_2 11 x_1  12_1_9") + "</ProductType><ProductionLot>" +
            Property("LotNumber", "L1") + "</ProductionLot><TestEnvironment KVAVersion='1'>" +
            Property("User", "u") + Property("Workspace", "w") + "</TestEnvironment><Fixture>" +
            Property("Name", "f") + "</Fixture>"));
        const UUTTest& test = *reading.test;
        QCOMPARE(test.GetUnitUnderTest()->GetID(), 42);
        QCOMPARE(test.GetProductType()->GetID(), 12);
        QCOMPARE(test.GetProductType()->GetName(), "type");
        QVERIFY(test.GetProductType()->GetParameters().isEmpty());
        QCOMPARE(test.GetProductType()->GetTestPrograms(), (QList<int>{10, 0, 12}));
        QCOMPARE(test.GetProductionLot()->GetID(), 42);
        QCOMPARE(test.GetSession()->GetWorkSpace()->GetID(), 42);
        QVERIFY(test.GetSession()->GetWorkSpace()->GetCurrentUser()->CheckPassword("QXZW"));
        QVERIFY(!test.GetFixture());
        QCOMPARE(reading.Texts(), "'x' is not an integer of 32 bits, read as 0");
    }

    void ElementsAtAnyDepth()
    {
        const Reading reading =
            Read("<a><b><UUTTest>" + Property("Result", "6") + "</UUTTest><c/></b><ProductionLot>" +
                 Property("LotNumber", "L") + "</ProductionLot></a>");
        QVERIFY(reading.imported);
        QCOMPARE(reading.test->GetResult(), ZYN_RESULT_DONE);
        QCOMPARE(reading.test->GetProductionLot()->GetName(), "L");
    }

    void Tree()
    {
        const Reading reading = Read(Report(
            "<TestResults><TestResultSet>" + Property("StationID", "7") + Property("FailedGroups", "x") +
            Property("FailedSteps", "99") + "<Testprogram ID='10' Name='P' Type='1'>" +
            Property("Ident", "10") + Property("SourceLine", "5") + Property("Name", "shown") +
            Property("FileVersion", "3") + "<Result Code='-1'/><TestGroup ID='20' Name='G' Type='2'>" +
            Property("SourceLine", "11") + Property("Enabled", "0") + Property("ReportInc", "2") +
            "<Result Code='-3' Result='x' DataType='y'>" + Property("Unit", "u") +
            "</Result><TestStep ID='thirty' Name='S' Type='3'>" + Property("SourceLine", "-12") +
            Property("Enabled", "1") + Property("ReportInc", "0") +
            "<Result Code='77'/><TestMeasurement ID='40' Name='M' Type='8'><Result Code='1'/>"
            "</TestMeasurement></TestStep></TestGroup></Testprogram></TestResultSet></TestResults>"));
        const TestResultSet* const set = reading.test->GetResultSets().value(0);
        QCOMPARE(set->GetStation()->GetName(), "hurz");

        const auto program = set->GetTestProgram();
        QCOMPARE(program->GetName(), "P");
        QCOMPARE(program->GetDisplayName(), "shown");
        QCOMPARE(program->GetFileVersion(), QString());
        QCOMPARE(program->sourceLine, 0U);

        const auto group = program->GetGroupForIndex(0);
        QCOMPARE(group->sourceLine, 11U);
        QVERIFY(!group->GetEnableCtrl()->IsEnabled());
        QVERIFY(group->GetLogInReportCtrl()->GetLogInReport());
        QCOMPARE(set->GetResult(group.data()), group->GetResult());

        const auto step = group->GetStepForIndex(0);
        QCOMPARE(step->GetID(), 0);
        QCOMPARE(step->sourceLine, 0U);
        QVERIFY(!step->GetLogInReportCtrl()->GetLogInReport());
        QCOMPARE(int(step->GetResult()->GetResult()), 77);
        const auto measurement = step->GetMeasurementForID(40);
        QCOMPARE(measurement->GetTestProgram(), program.data());
        QCOMPARE(measurement->resultState, ZYN_RESULT_PASSED);

        // In the order in which they were created.
        const QList<TestComponent*> order{program.data(), group.data(), step.data(), measurement.data()};
        QList<TestComponent*> found;
        for (const TestResult* const result : set->GetResults())
            found.append(result->GetComponent().data());
        QCOMPARE(found, order);
        QCOMPARE(reading.Texts(), "ident 'thirty' is not a number, read as 0");
    }

    void ParametersAreSkipped()
    {
        QByteArray report = StepReport(Measurement(8, QByteArray(), "5"));
        report.replace("<TestStep ", "<TestParameter ID='3' Name='A' Type='8'>" +
                                         Property("SourceLine", "9") + Limits(8, "Factor='-3'") +
                                         "<Result Code='-1'/></TestParameter><TestStep ");
        const Reading reading = Read(report);
        const auto program = reading.test->GetResultSets().first()->GetTestProgram();
        QCOMPARE(program->GetGroupCount(), 1);
        QCOMPARE(program->GetGroupForIndex(0)->GetParameterCount(), 0);
        QCOMPARE(reading.test->GetResultSets().first()->GetResults().size(), 4);
        QCOMPARE(ResultOf(reading)->GetValue(), QVariant(5.0));
        QCOMPARE(reading.Texts(), QString());
    }

    void GroupWithoutResult()
    {
        const Reading reading = Read(ProgramReport(
            "<TestGroup ID='2' Name='G' Type='2'><Result Code='1'/></TestGroup><TestGroup ID='3' Name='H' "
            "Type='2'><TestStep ID='4' Name='S' Type='3'><Result Code='1'/></TestStep></TestGroup>"));
        const auto program = reading.test->GetResultSets().first()->GetTestProgram();
        QCOMPARE(program->GetGroupCount(), 1);
        QCOMPARE(program->GetGroupForIndex(0)->GetStepForIndex(0)->GetName(), "S");
    }

    void StopTimeOfPanelItems()
    {
        const QByteArray top = "<UUTTest>" + Property("Result", "1") + "</UUTTest>";
        const QByteArray timed =
            "<UUTTest>" + Property("Result", "1") + Property("DateTime", "now") + "</UUTTest>";
        CImportServiceReport service;
        const Reading first =
            Read(Report(top + "<SubUnitTests><SubUnitTest>" + top + "</SubUnitTest><SubUnitTest>" + timed +
                        "</SubUnitTest></SubUnitTests>"),
                 service);
        QCOMPARE(first.test->GetStopTimeString(), QString());
        QCOMPARE(first.test->GetUUTTests().at(0)->GetStopTimeString(), "0");
        QCOMPARE(first.test->GetUUTTests().at(1)->GetStopTimeString(), "now");
        QCOMPARE(Read(Report(top), service).test->GetStopTimeString(), "0");
    }

    void Findings_data()
    {
        const Rows<qint64, QString> add;
        const auto row = [&](const QByteArray& document, qint64 line, const QString& text) {
            add(document, line, text);
        };
        const auto inSet = [](const QByteArray& content) {
            return Report("<TestResults><TestResultSet>" + content + "</TestResultSet></TestResults>");
        };
        const auto inGroup = [](const QByteArray& content) {
            return ProgramReport("<TestGroup ID='2' Name='G' Type='2'>" + content + "</TestGroup>");
        };
        const QByteArray step = "<TestStep ID='3' Name='S' Type='3'><Result Code='1'/></TestStep>";
        row(Report("\n"), 0, QString());
        row("<TestReport/>", 1, "the report has no version");
        row("\n<TestReport Version='9'/>", 2, "version '9' is not known, only '1.4.0'");
        row("<TestPlan/>", 1,
            "the root element is 'TestPlan', not 'TestReport'; element 'TestPlan' is not expected here, "
            "passed over");
        row("V1.2;3.3;PASS\n", 1, "Start tag expected.");
        row("<TestReport Version='1.4.0'>\n<UUTTest>", 2, "Premature end of document.");
        row(Report("\n\n<Extra/>"), 3, "element 'Extra' is not expected here, passed over");
        row(Report("<Result Code='1'/>"), 1, "element 'Result' is not expected here, passed over");
        row(Report("<ProductType/>"), 1, "'ProductType' before any 'UnitUnderTest', not read");
        row(Report("<UUTTest>\n" + Property("Colour", "red") + "</UUTTest>"), 2,
            "property 'Colour' of 'UUTTest' is unknown, not read");
        row(Report("<UUTTest><Property>x</Property></UUTTest>"), 1,
            "property '' of 'UUTTest' is unknown, not read");
        row(Report("<UUTTest>\nloose</UUTTest>"), 2,
            "text in 'UUTTest' outside of a property or behind its first piece, not read");
        row(Report("<UnitUnderTest>" + Property("SerialNo", "1") + "</UnitUnderTest>"), 1,
            "'SerialNo' of a unit that has no name yet, not read");
        row(Report("<ProductionLot>" + Property("OrderCode", "1") + "</ProductionLot>"), 1,
            "order code of a lot that has no number yet, not read");
        row(inSet(Property("StationDescription", "x")), 1,
            "property 'StationDescription' of 'TestResultSet' is unknown, not read");
        row(Report("<SubUnitTests><SubUnitTest><SubUnitTests/></SubUnitTest></SubUnitTests>"), 1,
            "element 'SubUnitTests' is not expected in 'SubUnitTest', skipped");
        row(inSet("<TestResultSet><Testprogram/></TestResultSet>"), 1,
            "element 'TestResultSet' is not expected in 'TestResultSet', skipped");
        row(inSet(QByteArray()), 0, QString());
        row(ProgramReport(QByteArray()), 0, QString());
        row(ProgramReport(step), 1, "element 'TestStep' is not expected in 'Testprogram', skipped");
        row(inGroup(step), 1, "step 'S' before any group, in no program");
        row(inGroup("<Limits Type='8'/>"), 1, "element 'Limits' is not expected in 'TestGroup', skipped");
        row(inGroup("<Result/><TestStep ID='3' Name='S' Type='3'>" + Measurement(8, QByteArray(), "1") +
                    "</TestStep>"),
            1, "'' is not an integer of 32 bits, read as 0; measurement 'M' before any step, in no program");
    }
    void Findings()
    {
        const auto [line, text] = CurrentRow<qint64, QString>();
        const Reading reading = Read(QTest::currentDataTag());
        QVERIFY(reading.imported);
        QCOMPARE(reading.Texts(), text);
        if (!text.isEmpty()) {
            QCOMPARE(reading.findings.first().line, line);
            QVERIFY(reading.findings.first().column > 0);
        }
        Write(*reading.test); // whatever was read can be written
    }

    void Service()
    {
        CImportServiceReport service;
        QVERIFY(!service.FormatOk());
        QVERIFY(service.SetFormat(" xml ") && service.FormatOk());
        const CImportServiceReport copy(service);
        QVERIFY(copy.FormatOk());
        QVERIFY(!service.SetFormat("nonsense"));
        QVERIFY(!service.FormatOk());

        UUTTest test(1, QString());
        QVERIFY(!service.Import(&test));
        service.SetInputFileName("/missing/file.zyr");
        QVERIFY(!service.Import(&test));
        QVERIFY(!service.Import(nullptr));
        QCOMPARE(service.GetErrorText(), QString());
        QVERIFY(service.GetFindings().isEmpty());
        // The format is not asked for.
        QVERIFY(Read(Report(QByteArray()), service).imported);
    }

    void HandlersWithoutADocument()
    {
        CImportServiceReport service;
        UUTTest test(1, QString());
        QVERIFY(!service.Stream_UUTTest(&test));
        QVERIFY(!service.Stream_SubUnitTest(nullptr));
        QVERIFY(!service.Stream_TestProgram());
        QVERIFY(Read(Report(QByteArray()), service).imported);
        QVERIFY(!service.Stream_TestResult());
    }
};

QTEST_GUILESS_MAIN(ReportImportTest)
#include "ReportImportTest.moc"
