#pragma once

#include "CReportBuilderStream.h"
#include "HtmlPage.h"

#include <ZYNCommon/ZYNTypes.h>

namespace ZYN {

class TestComponent;

/// Writes a report as one HTML page in UTF-8 with its style sheet inside: overview tables of labels and
/// values, then one table of eight columns per program. Durations are written for people. Values, units
/// and limits carry the prefix of their validation unless scaled data is turned off.
///
/// The property "ReportLogo" names an image, which the page refers to relative to itself. Texts of the
/// model are written without escaping. Left out: start time, panel index of a single unit, comments and
/// attributes.
///
/// The PDF report is drawn from the same page.
class CReportBuilderHTML : public CReportBuilderStream {
public:
    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestParameter;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;

    CReportBuilderHTML();

    bool Open() override;
    bool Close() override;

    bool BeginUUTTest(UUTTest* uutTest) override;
    bool BeginUnitUnderTest(UnitUnderTest* unit) override;
    bool BeginProductType(ProductType* productType) override;
    bool BeginProductionLot(ProductionLot* lot) override;
    bool BeginSession(ZYNSession* session) override;
    bool BeginFixture(Fixture* fixture) override;
    bool EndUUTTest(UUTTest* uutTest) override;

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
    void WriteVerdict(const QString& label, EN_ZYN_RESULT result, const QString& text);
    void WriteResultTableHead();
    /// \return false without writing when one of the two is null
    bool WriteRow(const QString& rowClass, const TestComponent* component, const TestResult* result);
    void WriteCells(const TestComponent* component, const TestResult* result);

    HtmlPage m_page{m_stream};
    bool m_panelItem = false;
};

} // namespace ZYN
