#pragma once

#include "JsonItems.h"

#include "export/CExportBuilderImp.h"

namespace ZYN {

/// The JSON report: one document, collected as compact text during the walk and written at its end.
///
/// Numbers that JSON cannot express (not-a-number, infinities) become null. Test parameters are left
/// out. What was collected is not cleared by `Close`: a second report through the same builder repeats
/// the items of the first.
class CReportBuilderJSON : public CExportBuilderImp {
public:
    bool Open() override;
    bool Close() override;

    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;

    bool BeginUUTTest(UUTTest* uutTest) override;
    bool BeginUnitUnderTest(UnitUnderTest* unit) override;
    bool BeginProductType(ProductType* productType) override;
    bool BeginProductionLot(ProductionLot* lot) override;
    bool BeginSession(ZYNSession* session) override;
    bool BeginFixture(Fixture* fixture) override;

    bool BeginTestProgram(TestProgram* program, TestResult* result) override;
    bool EndTestProgram(TestProgram* program) override;
    bool BeginTestGroup(TestGroup* group, TestResult* result) override;
    bool EndTestGroup(TestGroup* group) override;
    bool BeginTestStep(TestStep* step, TestResult* result) override;
    bool EndTestStep(TestStep* step) override;
    bool BeginTestMeasurement(TestMeasurement* measurement, TestResult* result) override;

    bool BeginSubUnitTest() override;
    bool EndSubUnitTest() override;

private:
    /// Where header items go: to the panel items inside one, else to the unit's own information.
    JsonItems& Items();

    bool inSubUnitTest = false;
    bool hasSubUnitTests = false;
    QJsonObject programObject;
    QJsonObject stepObject;
    QJsonObject groupObject;
    JsonItems information;
    JsonItems panelItems;
    JsonItems programs;
    /// The program that was written last, as far as it came: a panel item ends with it.
    JsonItems lastProgram{QJsonObject()};
    JsonItems groups;
    JsonItems steps;
    JsonItems values;
};

} // namespace ZYN
