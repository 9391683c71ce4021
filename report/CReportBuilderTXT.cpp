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
    m_sheet.EmptyLine();
    return CReportBuilderStream::Close();
}

bool CReportBuilderTXT::BeginUUTTest(UUTTest* uutTest)
{
    if (!uutTest)
        return false;
    m_sheet.EmptyLine();
    m_sheet.Label(u"Test Result:", uutTest->GetResultString(), labelWidth);
    m_sheet.Label(u"Test Duration:", uutTest->GetDurationStringFormated(), labelWidth);
    m_sheet.Label(u"Test Start/Stop:",
                  u"%1 / %2"_s.arg(uutTest->GetStartTimeString(), uutTest->GetStopTimeString()), labelWidth);
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    m_sheet.Label(u"UUT Serial Number:", unit->GetSerialNo(), labelWidth);
    m_sheet.Label(u"UUT Identification:", unit->GetIdentString(), labelWidth);
    m_sheet.Label(u"UUT Panel Index:", QString::number(unit->GetPanelIndex()), labelWidth);
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    m_sheet.Label(u"Product Name:", productType->GetName(), labelWidth);
    m_sheet.Label(u"Product Description:", productType->GetDescription(), labelWidth);
    m_sheet.Label(u"Product Article Code:", productType->GetArticelCode(), labelWidth);
    m_sheet.Label(u"Product Customer:", productType->GetCustomer(), labelWidth);
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    m_sheet.Label(u"KVA Version:", Environment::EngineVersion(), labelWidth);
    m_sheet.Label(u"Session Machine:", session->GetMachineName(), labelWidth);
    m_sheet.Label(u"Session User Name:", session->GetCurrentUserName(), labelWidth);
    m_sheet.Label(u"Session Workspace:", session->GetWorkspaceName(), labelWidth);
    m_sheet.EmptyLine();
    m_sheet.Rule(u'*');
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    m_sheet.Label(u"Fixture Name:", fixture->GetName(), labelWidth);
    m_sheet.Label(u"Fixture Identification:", fixture->GetIdent(), labelWidth);
    m_sheet.Label(u"Fixture Serial Number:", fixture->GetSerialNo(), labelWidth);
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program)
        return false;
    m_sheet.Banner(u" TEST PROGRAM RESULT ", u'-');
    // The time of writing, with the English names of C in every locale.
    m_sheet.Banner(u' ' + Environment::Now().toString(Qt::TextDate) + u' ', u'-');
    m_sheet.EmptyLine();
    m_sheet.Label(u"Testprogram:", program->GetName(), programLabelWidth);
    m_sheet.Label(u"Filename:", ReportText::FileName(program), programLabelWidth);
    m_sheet.Label(u"Version:", program->GetVersion(), programLabelWidth);
    m_sheet.Label(u"Creator:", program->GetCreator(), programLabelWidth);
    m_sheet.EmptyLine();
    if (result)
        WriteProgramResult(result);
    return true;
}

void CReportBuilderTXT::WriteProgramResult(const TestResult* result)
{
    m_sheet.Label(u"Result:", result->GetResultString(), programLabelWidth);
    m_sheet.Label(u"Duration:", result->GetDurationStringFormated(), programLabelWidth);
    m_sheet.Label(u"Timestamp:", result->GetTimeString(), programLabelWidth);
    m_sheet.EmptyLine();
    m_sheet.EmptyLine();
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
        m_sheet.Cell(column.title, column.width, TextSheet::Align::Centre);
    m_sheet.EndLine();
    for (const Column& column : columns)
        m_sheet.Cell(QString(column.width, u'_'), column.width);
    m_sheet.EndLine();
}

void CReportBuilderTXT::WriteRow(const TestComponent* component, const TestResult* result, int indentation)
{
    const ReportText::Row row(component, result, ReportText::Display(result));
    for (const Column& column : columns) {
        const CellText text = column.text(row);
        m_sheet.Cell(text.View(), column.width, TextSheet::Align::Left, indentation);
        indentation = 0;
    }
    m_sheet.EndLine();
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
    m_sheet.EmptyLine();
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::EndTestProgram(TestProgram*)
{
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::BeginSubUnitTest()
{
    m_sheet.Banner(u" PANEL ITEM TEST ", u'+');
    m_sheet.EmptyLine();
    return true;
}

bool CReportBuilderTXT::EndSubUnitTest()
{
    m_sheet.Rule(u'+');
    m_sheet.EmptyLine();
    return true;
}

} // namespace ZYN
