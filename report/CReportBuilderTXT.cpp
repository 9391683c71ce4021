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
    QStringView title;
    int width;
    ReportText::Lookup text;
};

constexpr Column columns[] = {
    {u"Name", 30, ReportText::Name},
    {u"Status", 6, ReportText::Result},
    {u"Value", 10, ReportText::ShownValue},
    {u"Unit", 8, ReportText::Unit},
    {u"LL", 10, ReportText::ShownLowerLimit},
    {u"UL", 10, ReportText::ShownUpperLimit},
    {u"TD", 12, ReportText::DurationForPeople},
    {u"ID", 12, ReportText::Ident},
    {u"Attribute", 20, ReportText::Attribute},
    {u"Comment", 20, ReportText::Comment},
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
    sheet.Label(u"Test Result:", uutTest->GetResultString(), labelWidth);
    sheet.Label(u"Test Duration:", uutTest->GetDurationStringFormated(), labelWidth);
    sheet.Label(u"Test Start/Stop:",
                u"%1 / %2"_s.arg(uutTest->GetStartTimeString(), uutTest->GetStopTimeString()), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    sheet.Label(u"UUT Serial Number:", unit->GetSerialNo(), labelWidth);
    sheet.Label(u"UUT Identification:", unit->GetIdentString(), labelWidth);
    sheet.Label(u"UUT Panel Index:", QString::number(unit->GetPanelIndex()), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    sheet.Label(u"Product Name:", productType->GetName(), labelWidth);
    sheet.Label(u"Product Description:", productType->GetDescription(), labelWidth);
    sheet.Label(u"Product Article Code:", productType->GetArticelCode(), labelWidth);
    sheet.Label(u"Product Customer:", productType->GetCustomer(), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    sheet.Label(u"KVA Version:", Environment::EngineVersion(), labelWidth);
    sheet.Label(u"Session Machine:", session->GetMachineName(), labelWidth);
    sheet.Label(u"Session User Name:", session->GetCurrentUserName(), labelWidth);
    sheet.Label(u"Session Workspace:", session->GetWorkspaceName(), labelWidth);
    sheet.EmptyLine();
    sheet.Rule(u'*');
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    sheet.Label(u"Fixture Name:", fixture->GetName(), labelWidth);
    sheet.Label(u"Fixture Identification:", fixture->GetIdent(), labelWidth);
    sheet.Label(u"Fixture Serial Number:", fixture->GetSerialNo(), labelWidth);
    sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program)
        return false;
    sheet.Banner(u" TEST PROGRAM RESULT ", u'-');
    // The time of writing, with the English names of C in every locale.
    sheet.Banner(u' ' + Environment::Now().toString(Qt::TextDate) + u' ', u'-');
    sheet.EmptyLine();
    sheet.Label(u"Testprogram:", program->GetName(), programLabelWidth);
    sheet.Label(u"Filename:", ReportText::FileName(program), programLabelWidth);
    sheet.Label(u"Version:", program->GetVersion(), programLabelWidth);
    sheet.Label(u"Creator:", program->GetCreator(), programLabelWidth);
    sheet.EmptyLine();
    if (result)
        WriteProgramResult(result);
    return true;
}

void CReportBuilderTXT::WriteProgramResult(const TestResult* result)
{
    sheet.Label(u"Result:", result->GetResultString(), programLabelWidth);
    sheet.Label(u"Duration:", result->GetDurationStringFormated(), programLabelWidth);
    sheet.Label(u"Timestamp:", result->GetTimeString(), programLabelWidth);
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
        sheet.Cell(column.title, column.width, TextSheet::Align::Centre);
    sheet.EndLine();
    for (const Column& column : columns)
        sheet.Cell(QString(column.width, u'_'), column.width);
    sheet.EndLine();
}

void CReportBuilderTXT::WriteRow(const TestComponent* component, const TestResult* result, int indentation)
{
    const ReportText::Row row(component, result, ReportText::Display(result));
    for (const Column& column : columns) {
        const CellText text = column.text(row);
        sheet.Cell(text.View(), column.width, TextSheet::Align::Left, indentation);
        indentation = 0;
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
    sheet.Banner(u" PANEL ITEM TEST ", u'+');
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
