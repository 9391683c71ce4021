#pragma once

#include "report/CReportBuilderElements.h"

namespace ZYN {

/// Writes a statistics report as XML, version 1.0.2: what was tested, then one element per entry with its
/// counts and figures. The header elements are those of the XML report. Single values are left out.
class CStatisticsReportBuilderXML : public CReportBuilderElements {
public:
    bool Open() override;

    using CReportBuilderElements::BeginTestProgram;
    bool BeginTestProgram(TestProgram* program) override;
    bool BeginStatisticsData(StatisticsData* data) override;

private:
    void WriteFigures(const StatisticsData* data);
};

} // namespace ZYN
