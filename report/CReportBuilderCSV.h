#pragma once

#include "CReportBuilderStream.h"
#include "LineText.h"

namespace ZYN {

class TestComponent;

/// Writes results as a table for spreadsheet programs: UTF-8, line feeds, cells separated by ';'. One
/// row each for the program, user groups, steps, parameters and measurements. Values and limits are in
/// the base unit without a prefix, durations in milliseconds.
///
/// Nothing is quoted but the ident. Left out: unit, product, lot, session and fixture, groups that are
/// no user groups with all they hold. The title line comes again before each program, also each panel
/// item's.
class CReportBuilderCSV : public CReportBuilderStream {
public:
    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestParameter;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;

    bool BeginTestProgram(TestProgram* program, TestResult* result) override;
    bool BeginTestGroup(TestGroup* group, TestResult* result) override;
    bool BeginTestStep(TestStep* step, TestResult* result) override;
    bool BeginTestParameter(TestParameter* parameter, TestResult* result) override;
    bool BeginTestMeasurement(TestMeasurement* measurement, TestResult* result) override;

private:
    /// Writes one line: the cell of every column.
    template <class AddCell>
    void WriteLine(AddCell addCell);
    /// \return false without writing when one of the two is null
    bool WriteRow(const TestComponent* component, const TestResult* result);

    LineText m_line;
};

} // namespace ZYN
