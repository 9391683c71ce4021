#pragma once

#include "CReportBuilderElements.h"

namespace ZYN {

class TestComponent;

/// The XML report, the native format: opens the document and hands every element to the element writer.
///
/// The property "XMLStyle" is the path of a style sheet that the document names; relative paths are made
/// absolute against the working directory. End operations close the innermost element whatever it is: only
/// the order of the calls keeps the tree balanced.
class CReportBuilderXML : public CReportBuilderElements {
public:
    bool Open() override;

    bool BeginUUTTest(UUTTest* uutTest) override;
    bool BeginProductionLot(ProductionLot* lot) override;
    bool BeginFixture(Fixture* fixture) override;

    bool BeginTestResults() override;
    bool EndTestResults() override;
    bool BeginTestResultSet(TestResultSet* resultSet) override;
    bool EndTestResultSet(TestResultSet* resultSet) override;

    using CReportBuilderElements::BeginTestProgram;
    bool BeginTestProgram(TestProgram* program, TestResult* result) override;
    bool EndTestProgram(TestProgram* program) override;
    using CReportBuilderElements::BeginTestGroup;
    bool BeginTestGroup(TestGroup* group, TestResult* result) override;
    bool EndTestGroup(TestGroup* group) override;
    using CReportBuilderElements::BeginTestStep;
    bool BeginTestStep(TestStep* step, TestResult* result) override;
    bool EndTestStep(TestStep* step) override;
    using CReportBuilderElements::BeginTestParameter;
    bool BeginTestParameter(TestParameter* parameter, TestResult* result) override;
    using CReportBuilderElements::BeginTestMeasurement;
    bool BeginTestMeasurement(TestMeasurement* measurement, TestResult* result) override;

    bool BeginSubUnitTests() override;
    bool EndSubUnitTests() override;
    bool BeginSubUnitTest() override;
    bool EndSubUnitTest() override;

private:
    void WriteStyleSheet();
    void StartComponent(const QString& element, const TestComponent* component);
    void WriteLeaf(const QString& element, const TestComponent* component, const TestResult* result);
    bool StartContainer(const QString& element);
    bool EndContainer();
};

} // namespace ZYN
