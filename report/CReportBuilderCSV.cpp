#include "CReportBuilderCSV.h"

#include "ReportText.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

namespace ZYN {

namespace {

struct Column {
    QStringView title;
    ReportText::Lookup text;
};

constexpr Column columns[] = {
    {u"Ident", ReportText::SpreadsheetIdent},    {u"Name", ReportText::Name},
    {u"TypeID", ReportText::TypeCode},           {u"Type", ReportText::Type},
    {u"ResultID", ReportText::ResultCode},       {u"Result", ReportText::Result},
    {u"Value", ReportText::PlainValue},          {u"Unit", ReportText::Unit},
    {u"LowerComp", ReportText::LowerOperator},   {u"LowerLimit", ReportText::PlainLowerLimit},
    {u"UpperComp", ReportText::UpperOperator},   {u"UpperLimit", ReportText::PlainUpperLimit},
    {u"Duration(ms)", ReportText::Duration},     {u"Attribute", ReportText::SimplifiedAttribute},
    {u"Comment", ReportText::SimplifiedComment},
};

} // namespace

template <class AddCell>
void CReportBuilderCSV::WriteLine(AddCell addCell)
{
    m_line.Clear();
    for (const Column& column : columns) {
        if (&column != columns)
            m_line.Add(u';');
        addCell(column);
    }
    m_stream << m_line.View() << Qt::endl;
}

bool CReportBuilderCSV::WriteRow(const TestComponent* component, const TestResult* result)
{
    if (!component || !result)
        return false;
    const ReportText::Row row(component, result, nullptr);
    WriteLine([&](const Column& column) {
        const CellText text = column.text(row);
        m_line.Add(text.View());
    });
    return true;
}

bool CReportBuilderCSV::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program || !result)
        return false;
    WriteLine([this](const Column& column) { m_line.Add(column.title); });
    return WriteRow(program, result);
}

bool CReportBuilderCSV::BeginTestGroup(TestGroup* group, TestResult* result)
{
    return group && group->IsUserGroup() && WriteRow(group, result);
}

bool CReportBuilderCSV::BeginTestStep(TestStep* step, TestResult* result)
{
    return WriteRow(step, result);
}

bool CReportBuilderCSV::BeginTestParameter(TestParameter* parameter, TestResult* result)
{
    return WriteRow(parameter, result);
}

bool CReportBuilderCSV::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    return WriteRow(measurement, result);
}

} // namespace ZYN
