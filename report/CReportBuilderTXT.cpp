#include "CReportBuilderTXT.h"

#include "ReportText.h"

#include "export/Environment.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

constexpr int labelWidth = 30;
constexpr int programLabelWidth = 20;
constexpr int groupIndentation = 0;
constexpr int stepIndentation = 5;
constexpr int measurementIndentation = 10;

struct Column {
    QLatin1StringView title;
    int width;
    ReportText::Lookup text;
};

constexpr Column columns[] = {
    {"Name"_L1, 30, ReportText::Name},
    {"Status"_L1, 6, ReportText::Result},
    {"Value"_L1, 10, ReportText::ShownValue},
    {"Unit"_L1, 8, ReportText::Unit},
    {"LL"_L1, 10, ReportText::ShownLowerLimit},
    {"UL"_L1, 10, ReportText::ShownUpperLimit},
    {"TD"_L1, 12, ReportText::DurationForPeople},
    {"ID"_L1, 12, ReportText::Ident},
    {"Attribute"_L1, 20, ReportText::Attribute},
    {"Comment"_L1, 20, ReportText::Comment},
};

} // namespace

bool CReportBuilderTXT::Close()
{
    if (!IsOpened())
        return true;
    sheet.EmptyLine();
    return CReportBuilderStream::Close();
}

bool CReportBuilderTXT::BeginUUTTest(UUTTest* uutTest)
{
    if (!uutTest)
        return false;
    sheet.EmptyLine();
    sheet.Label(u"Test Result:"_s, uutTest->GetResultString(), labelWidth);
    sheet.Label(u"Test Duration:"_s, uutTest->GetDurationStringFormated(), labelWidth);
    sheet.Label(u"Test Start/Stop:"_s,
                u"%1 / %2"_s.arg(uutTest->GetStartTimeString(), uutTest->GetStopTimeString()), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    sheet.Label(u"UUT Serial Number:"_s, unit->GetSerialNo(), labelWidth);
    sheet.Label(u"UUT Identification:"_s, unit->GetIdentString(), labelWidth);
    sheet.Label(u"UUT Panel Index:"_s, QString::number(unit->GetPanelIndex()), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    sheet.Label(u"Product Name:"_s, productType->GetName(), labelWidth);
    sheet.Label(u"Product Description:"_s, productType->GetDescription(), labelWidth);
    sheet.Label(u"Product Article Code:"_s, productType->GetArticelCode(), labelWidth);
    sheet.Label(u"Product Customer:"_s, productType->GetCustomer(), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    sheet.Label(u"KVA Version:"_s, Environment::EngineVersion(), labelWidth);
    sheet.Label(u"Session Machine:"_s, session->GetMachineName(), labelWidth);
    sheet.Label(u"Session User Name:"_s, session->GetCurrentUserName(), labelWidth);
    sheet.Label(u"Session Workspace:"_s, session->GetWorkspaceName(), labelWidth);
    sheet.EmptyLine();
    sheet.Rule(u'*');
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    sheet.Label(u"Fixture Name:"_s, fixture->GetName(), labelWidth);
    sheet.Label(u"Fixture Identification:"_s, fixture->GetIdent(), labelWidth);
    sheet.Label(u"Fixture Serial Number:"_s, fixture->GetSerialNo(), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program)
        return false;
    sheet.Banner(u" TEST PROGRAM RESULT "_s, u'-');
    // The time of writing, with the English names of C in every locale.
    sheet.Banner(u' ' + Environment::Now().toString(Qt::TextDate) + u' ', u'-');
    sheet.EmptyLine();
    sheet.Label(u"Testprogram:"_s, program->GetName(), programLabelWidth);
    sheet.Label(u"Filename:"_s, ReportText::FileName(program), programLabelWidth);
    sheet.Label(u"Version:"_s, program->GetVersion(), programLabelWidth);
    sheet.Label(u"Creator:"_s, program->GetCreator(), programLabelWidth);
    sheet.EmptyLine();
    if (result)
        WriteProgramResult(result);
    return true;
}

void CReportBuilderTXT::WriteProgramResult(const TestResult* result)
{
    sheet.Label(u"Result:"_s, result->GetResultString(), programLabelWidth);
    sheet.Label(u"Duration:"_s, result->GetDurationStringFormated(), programLabelWidth);
    sheet.Label(u"Timestamp:"_s, result->GetTimeString(), programLabelWidth);
    sheet.EmptyLine();
    sheet.EmptyLine();
}

bool CReportBuilderTXT::BeginTestGroup(TestGroup* group, TestResult* result)
{
    if (!group || !result)
        return false;
    WriteTableHead();
    WriteRow(group, result, groupIndentation);
    return true;
}

void CReportBuilderTXT::WriteTableHead()
{
    for (const Column& column : columns)
        sheet.Cell(column.title, column.width, QTextStream::AlignCenter);
    sheet.EndLine();
    for (const Column& column : columns)
        sheet.Cell(QString(column.width, u'_'), column.width);
    sheet.EndLine();
}

void CReportBuilderTXT::WriteRow(const TestComponent* component, const TestResult* result, int indentation)
{
    const ReportText::Row row(component, result, ReportText::Display(result));
    QString indent(indentation, u' ');
    for (const Column& column : columns) {
        sheet.Cell(indent + column.text(row), column.width);
        indent.clear();
    }
    sheet.EndLine();
}

bool CReportBuilderTXT::BeginTestParameter(TestParameter* parameter, TestResult* result)
{
    return parameter && result;
}

bool CReportBuilderTXT::BeginTestStep(TestStep* step, TestResult* result)
{
    if (!step || !result)
        return false;
    if (!ReportText::IsStoodFor(step))
        WriteRow(step, result, stepIndentation);
    return true;
}

bool CReportBuilderTXT::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    if (!measurement || !result)
        return false;
    WriteRow(measurement, result,
             ReportText::StandsForStep(measurement) ? stepIndentation : measurementIndentation);
    return true;
}

bool CReportBuilderTXT::EndTestGroup(TestGroup*)
{
    sheet.EmptyLine();
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::EndTestProgram(TestProgram*)
{
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginSubUnitTest()
{
    sheet.Banner(u" PANEL ITEM TEST "_s, u'+');
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::EndSubUnitTest()
{
    sheet.Rule(u'+');
    sheet.EmptyLine();
    return true;
}

} // namespace ZYN
