#pragma once

#include "report/CReportBuilderStream.h"

namespace ZYN {

/// Writes the measurements that failed, one a line: ident, name, value and unit, separated by tabs. UTF-8,
/// line feeds. Values are in the base unit. Everything else is left out; tabs and line ends in names become
/// blanks.
class CReportBuilderFailures : public CReportBuilderStream {
public:
    using CExportBuilderImp::BeginTestMeasurement;

    bool BeginTestMeasurement(TestMeasurement* measurement, TestResult* result) override;
};

} // namespace ZYN
