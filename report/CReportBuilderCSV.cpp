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
    const char* title;
    ReportText::Lookup text;
};

constexpr Column columns[] = {
    {"Ident", ReportText::SpreadsheetIdent},    {"Name", ReportText::Name},
    {"TypeID", ReportText::TypeCode},           {"Type", ReportText::Type},
    {"ResultID", ReportText::ResultCode},       {"Result", ReportText::Result},
    {"Value", ReportText::PlainValue},          {"Unit", ReportText::Unit},
    {"LowerComp", ReportText::LowerOperator},   {"LowerLimit", ReportText::PlainLowerLimit},
    {"UpperComp", ReportText::UpperOperator},   {"UpperLimit", ReportText::PlainUpperLimit},
    {"Duration(ms)", ReportText::Duration},     {"Attribute", ReportText::SimplifiedAttribute},
    {"Comment", ReportText::SimplifiedComment},
};

/// Writes one line: the cell of every column.
template <class Cell>
void WriteLine(QTextStream& stream, Cell cell)
{
    const char* separator = "";
    for (const Column& column : columns) {
        stream << separator << cell(column);
        separator = ";";
    }
    stream << Qt::endl;
}

} // namespace

void CReportBuilderCSV::WriteTitles()
{
    WriteLine(stream, [](const Column& column) { return column.title; });
}

bool CReportBuilderCSV::WriteRow(const TestComponent* component, const TestResult* result)
{
    if (!component || !result)
        return false;
    const ReportText::Row row(component, result, nullptr);
    WriteLine(stream, [&](const Column& column) { return column.text(row); });
    return true;
}

bool CReportBuilderCSV::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program || !result)
        return false;
    WriteTitles();
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
