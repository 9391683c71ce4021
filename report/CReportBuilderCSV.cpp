#include "CReportBuilderCSV.h"

#include "ReportText.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

struct Column {
    QLatin1StringView title;
    ReportText::Lookup text;
};

constexpr Column columns[] = {
    {"Ident"_L1, ReportText::SpreadsheetIdent},    {"Name"_L1, ReportText::Name},
    {"TypeID"_L1, ReportText::TypeCode},           {"Type"_L1, ReportText::Type},
    {"ResultID"_L1, ReportText::ResultCode},       {"Result"_L1, ReportText::Result},
    {"Value"_L1, ReportText::PlainValue},          {"Unit"_L1, ReportText::Unit},
    {"LowerComp"_L1, ReportText::LowerOperator},   {"LowerLimit"_L1, ReportText::PlainLowerLimit},
    {"UpperComp"_L1, ReportText::UpperOperator},   {"UpperLimit"_L1, ReportText::PlainUpperLimit},
    {"Duration(ms)"_L1, ReportText::Duration},     {"Attribute"_L1, ReportText::SimplifiedAttribute},
    {"Comment"_L1, ReportText::SimplifiedComment},
};

} // namespace

template <class Cell>
void CReportBuilderCSV::WriteLine(Cell cell)
{
    line.resize(0);
    for (const Column& column : columns) {
        line += cell(column);
        line += u';';
    }
    line.chop(1);
    stream << line << Qt::endl;
}

bool CReportBuilderCSV::WriteRow(const TestComponent* component, const TestResult* result)
{
    if (!component || !result)
        return false;
    const ReportText::Row row(component, result, nullptr);
    WriteLine([&](const Column& column) { return column.text(row); });
    return true;
}

bool CReportBuilderCSV::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program || !result)
        return false;
    WriteLine([](const Column& column) { return column.title; });
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
