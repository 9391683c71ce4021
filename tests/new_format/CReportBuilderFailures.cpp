#include "CReportBuilderFailures.h"

#include "report/ReportText.h"

#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestResult.h>

namespace ZYN {

bool CReportBuilderFailures::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    if (!measurement || !result)
        return false;
    if (result->GetResult() >= 0)
        return true;
    const ReportText::Row row(measurement, result, nullptr);
    m_stream << ReportText::Ident(row) << '\t' << measurement->GetName().simplified() << '\t'
             << ReportText::PlainValue(row) << '\t' << ReportText::Unit(row) << Qt::endl;
    return true;
}

} // namespace ZYN
