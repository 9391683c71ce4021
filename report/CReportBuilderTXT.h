#pragma once

#include "CReportBuilderStream.h"
#include "TextSheet.h"

namespace ZYN {

class TestComponent;

/// Writes a report for printers and plain viewers: UTF-8, line feeds, banners of 100 characters, blocks
/// of labels, one table of fixed columns per group. Values, units and limits carry the prefix of their
/// validation, whatever the scaled-data setting; durations are written for people.
///
/// Left out: production lot and parameters. Text that is longer than its column moves the rest of its
/// line to the right.
class CReportBuilderTXT : public CReportBuilderStream {
public:
    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestParameter;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;

    bool Close() override;

    bool BeginUUTTest(UUTTest* uutTest) override;
    bool BeginUnitUnderTest(UnitUnderTest* unit) override;
    bool BeginProductType(ProductType* productType) override;
    bool BeginSession(ZYNSession* session) override;
    bool BeginFixture(Fixture* fixture) override;

    bool BeginTestProgram(TestProgram* program, TestResult* result) override;
    bool BeginTestGroup(TestGroup* group, TestResult* result) override;
    bool BeginTestParameter(TestParameter* parameter, TestResult* result) override;
    bool BeginTestStep(TestStep* step, TestResult* result) override;
    bool BeginTestMeasurement(TestMeasurement* measurement, TestResult* result) override;
    bool EndTestGroup(TestGroup* group) override;
    bool EndTestProgram(TestProgram* program) override;

    bool BeginSubUnitTest() override;
    bool EndSubUnitTest() override;

private:
    void WriteProgramResult(const TestResult* result);
    void WriteTableHead();
    /// \param indentation blanks before the component's name
    void WriteRow(const TestComponent* component, const TestResult* result, int indentation);

    TextSheet m_sheet{m_stream};
};

} // namespace ZYN
