#include "CReportBuilderHTML.h"

#include "ReportText.h"

#include "export/Environment.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QObject>

#include <iterator>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

enum class Mark { None, Verdict };

struct Column {
    const char* title;
    QLatin1StringView cellClass;
    Mark mark;
    ReportText::Lookup text;
};

constexpr QLatin1StringView alignRight = "ar"_L1;
constexpr QLatin1StringView plain;

constexpr Column columns[] = {
    {QT_TRANSLATE_NOOP("QObject", "Ident"), alignRight, Mark::None, ReportText::Ident},
    {QT_TRANSLATE_NOOP("QObject", "Name"), plain, Mark::None, ReportText::Name},
    {QT_TRANSLATE_NOOP("QObject", "Result"), plain, Mark::Verdict, ReportText::Result},
    {QT_TRANSLATE_NOOP("QObject", "Value"), alignRight, Mark::None, ReportText::ResultValue},
    {QT_TRANSLATE_NOOP("QObject", "Unit"), plain, Mark::None, ReportText::Unit},
    {QT_TRANSLATE_NOOP("QObject", "LL"), alignRight, Mark::None, ReportText::ResultLowerLimit},
    {QT_TRANSLATE_NOOP("QObject", "UL"), alignRight, Mark::None, ReportText::ResultUpperLimit},
    {QT_TRANSLATE_NOOP("QObject", "Time"), alignRight, Mark::None, ReportText::DurationForPeople},
};

constexpr int resultColumns = static_cast<int>(std::size(columns));
/// Columns of a pair of pairs that a verdict spans: all but its label.
constexpr int verdictSpan = 3;

const QString overview = u"overview"_s;
const QString filler = u"&nbsp;"_s;

} // namespace

CReportBuilderHTML::CReportBuilderHTML()
{
    CExportBuilderImp::SetUseScaledData(true);
}

bool CReportBuilderHTML::Open()
{
    if (!CReportBuilderStream::Open())
        return false;
    m_panelItem = false;
    const QString logo = GetProperty(u"ReportLogo"_s);
    m_page.Begin(logo.isEmpty() ? logo : RelativeToOutput(logo));
    return true;
}

bool CReportBuilderHTML::Close()
{
    if (m_stream.device())
        m_page.End();
    return CReportBuilderStream::Close();
}

bool CReportBuilderHTML::BeginUUTTest(UUTTest* uutTest)
{
    if (!uutTest)
        return false;
    if (m_panelItem) {
        const auto unit = uutTest->GetUnitUnderTest();
        m_page.LineBreak();
        m_page.Headline(unit ? QObject::tr("Panel Item") + u' ' + QString::number(unit->GetPanelIndex())
                             : QObject::tr("Panel Item"));
    }
    m_page.OpenTable(overview);
    WriteVerdict(QObject::tr("Test Result"), uutTest->GetResult(), uutTest->GetResultString());

    const QString duration = uutTest->GetDurationStringFormated();
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Test Date/Time"), uutTest->GetStopTimeString());
    m_page.Pair(duration.isEmpty() ? QString() : QObject::tr("Test Duration"), duration);
    m_page.CloseRow();
    return true;
}

void CReportBuilderHTML::WriteVerdict(const QString& label, EN_ZYN_RESULT result, const QString& text)
{
    m_page.OpenRow(overview);
    m_page.Cell(label, u"name"_s);
    m_page.Cell(text, u"value"_s, ReportText::ResultId(result), verdictSpan);
    m_page.CloseRow();
}

bool CReportBuilderHTML::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("UUT SerialNo."), unit->GetSerialNo());
    m_page.Pair(QObject::tr("UUT Identification"), unit->GetIdentString());
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Product Name"), productType->GetName());
    m_page.Pair(QObject::tr("Product Description"), productType->GetDescription());
    m_page.CloseRow();
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Article Code"), productType->GetArticelCode());
    m_page.Pair(QObject::tr("Customer"), productType->GetCustomer());
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::BeginProductionLot(ProductionLot* lot)
{
    if (!lot)
        return false;
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Lot Name"), lot->GetName());
    m_page.Pair(filler, filler);
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    // Six cells where the other rows have four.
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("KVA Version"), Environment::EngineVersion());
    m_page.Pair(QObject::tr("Test Machine"), session->GetMachineName());
    m_page.Pair(QObject::tr("Workspace"), session->GetWorkspaceName());
    m_page.CloseRow();
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Operator"), session->GetCurrentUserName());
    m_page.Pair(filler, filler);
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Fixture Type"), fixture->GetFixtureTypeName());
    m_page.Pair(QObject::tr("Fixture SerialNo."), fixture->GetSerialNo());
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::EndUUTTest(UUTTest*)
{
    m_page.CloseTable();
    return true;
}

bool CReportBuilderHTML::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program || !result)
        return false;
    m_page.LineBreak();
    m_page.Headline(QObject::tr("Program:"));
    // A panel item's overview is still open here: its program goes on in the same table.
    m_page.OpenTable(overview);
    WriteVerdict(QObject::tr("Result"), result->GetResult(), result->GetResultString());
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Name"), program->GetDisplayName());
    m_page.Pair(QObject::tr("File"), ReportText::FileName(program));
    m_page.CloseRow();
    m_page.OpenRow(overview);
    m_page.Pair(QObject::tr("Version"), program->GetVersion());
    m_page.Pair(QObject::tr("Duration"), result->GetDurationStringFormated());
    m_page.CloseRow();
    m_page.CloseTable();
    m_page.LineBreak();
    m_page.Headline(QObject::tr("Results:"));
    WriteResultTableHead();
    return true;
}

void CReportBuilderHTML::WriteResultTableHead()
{
    m_page.OpenTable();
    m_page.OpenRow(u"th"_s);
    for (const Column& column : columns)
        m_page.HeaderCell(QObject::tr(column.title));
    m_page.CloseRow();
}

bool CReportBuilderHTML::WriteRow(const QString& rowClass, const TestComponent* component,
                                  const TestResult* result)
{
    if (!component || !result)
        return false;
    m_page.OpenRow(rowClass);
    WriteCells(component, result);
    m_page.CloseRow();
    return true;
}

void CReportBuilderHTML::WriteCells(const TestComponent* component, const TestResult* result)
{
    const ReportText::Row row(component, result, GetUseScaledData() ? ReportText::Display(result) : nullptr);
    for (const Column& column : columns) {
        const bool isVerdict = column.mark == Mark::Verdict;
        const CellText text = column.text(row);
        m_page.Cell(text.View(), column.cellClass,
                    isVerdict ? ReportText::ResultId(result->GetResult()) : QString());
    }
}

bool CReportBuilderHTML::BeginTestGroup(TestGroup* group, TestResult* result)
{
    return WriteRow(u"tg"_s, group, result);
}

bool CReportBuilderHTML::BeginTestParameter(TestParameter* parameter, TestResult* result)
{
    return WriteRow(u"tp"_s, parameter, result);
}

bool CReportBuilderHTML::BeginTestStep(TestStep* step, TestResult* result)
{
    if (!step || !result)
        return false;
    m_page.OpenRow(u"ts"_s);
    if (!ReportText::IsStoodFor(step))
        WriteCells(step, result);
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    const bool standsForStep = measurement && ReportText::StandsForStep(measurement);
    return WriteRow(standsForStep ? u"ts"_s : u"tm"_s, measurement, result);
}

bool CReportBuilderHTML::EndTestGroup(TestGroup*)
{
    m_page.OpenRow(u"empty"_s);
    m_page.Cell(filler, QString(), QString(), resultColumns);
    m_page.CloseRow();
    return true;
}

bool CReportBuilderHTML::EndTestProgram(TestProgram*)
{
    m_page.CloseTable();
    m_page.LineBreak();
    m_page.LineBreak();
    return true;
}

bool CReportBuilderHTML::BeginSubUnitTest()
{
    m_page.HorizontalRule();
    m_panelItem = true;
    return true;
}

bool CReportBuilderHTML::EndSubUnitTest()
{
    m_panelItem = false;
    return true;
}

} // namespace ZYN
