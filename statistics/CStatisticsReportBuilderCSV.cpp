#include "CStatisticsReportBuilderCSV.h"

#include "report/ReportText.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataDecoration.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>

#include <QtCore/QObject>

#include <algorithm>

namespace ZYN {

namespace {

struct Row {
    const char* label;
    QString (*text)(const StatisticsData& entry, const StatisticsDataDecoration& figures);
};

template <QString (StatisticsDataDecoration::*figure)() const>
QString Figure(const StatisticsData&, const StatisticsDataDecoration& figures)
{
    return (figures.*figure)();
}

template <int (StatisticsData::*count)() const>
QString Count(const StatisticsData& entry, const StatisticsDataDecoration&)
{
    return QString::number((entry.*count)());
}

QString Ident(const StatisticsData& entry, const StatisticsDataDecoration&)
{
    const TestComponent* const component = entry.GetComponent();
    return component ? ReportText::SpreadsheetText(component->GetIdentString()) : QString();
}

QString Name(const StatisticsData& entry, const StatisticsDataDecoration&)
{
    const TestComponent* const component = entry.GetComponent();
    return component ? component->GetName() : QString();
}

constexpr Row rows[] = {
    {"Ident", Ident},
    {"Name", Name},
    {"Lower", Figure<&StatisticsDataDecoration::GetLowerLimit>},
    {"Upper", Figure<&StatisticsDataDecoration::GetUpperLimit>},
    {"Unit", Figure<&StatisticsDataDecoration::GetUnitString>},
    {"Pass", Count<&StatisticsData::GetNrPass>},
    {"Fail", Count<&StatisticsData::GetNrFail>},
    {"Average", Figure<&StatisticsDataDecoration::GetAverage>},
    {"Sigma", Figure<&StatisticsDataDecoration::GetSigma>},
    {"CPK", Figure<&StatisticsDataDecoration::GetCPK>},
    {"Min", Figure<&StatisticsDataDecoration::GetMin>},
    {"Max", Figure<&StatisticsDataDecoration::GetMax>},
};

/// The display that the component's own validation shows values with; null when it has none.
const ValueDisplay* PlannedDisplay(const TestComponent* component)
{
    const CtrlValidation* const control = component ? component->GetValidationCtrl() : nullptr;
    const auto validation = control ? control->GetValidation() : nullptr;
    return validation ? validation->GetValueDisplay() : nullptr;
}

} // namespace

bool CStatisticsReportBuilderCSV::BeginStatisticsData(StatisticsData* data)
{
    if (!data)
        return false;
    m_entries.append(data);
    return true;
}

bool CStatisticsReportBuilderCSV::Close()
{
    WriteTable();
    return CReportBuilderStream::Close();
}

void CStatisticsReportBuilderCSV::WriteTable()
{
    for (const Row& row : rows) {
        m_stream << row.label;
        for (const StatisticsData* const entry : std::as_const(m_entries)) {
            StatisticsDataDecoration figures(entry);
            figures.SetUseScaledData(GetUseScaledData());
            m_stream << ';' << row.text(*entry, figures);
        }
        m_stream << Qt::endl;
    }
    int values = 0;
    for (const StatisticsData* const entry : std::as_const(m_entries))
        values = std::max(values, entry->Size());
    for (int index = 0; index < values; ++index)
        WriteValueRow(index);
}

void CStatisticsReportBuilderCSV::WriteValueRow(int index)
{
    m_stream << QObject::tr("Value") << ' ' << index + 1;
    for (const StatisticsData* const entry : std::as_const(m_entries)) {
        m_stream << ';';
        const TestResult* const result = entry->GetResult(index);
        if (!result)
            continue;
        m_stream << result->GetValueString(GetUseScaledData() ? PlannedDisplay(entry->GetComponent())
                                                              : nullptr);
    }
    m_stream << Qt::endl;
}

} // namespace ZYN
