#pragma once

#include "export/CExportBuilderImp.h"

#include <memory>

namespace ZYN {

class TestComponent;
class UPrivateXMLWriter;

/// The XML report, the native format: opens the document and hands every element to the element writer.
///
/// The property "XMLStyle" is the path of a style sheet that the document names; relative paths are made
/// absolute against the working directory. End operations close the innermost element whatever it is: only
/// the order of the calls keeps the tree balanced.
class CReportBuilderXML : public CExportBuilderImp {
public:
    CReportBuilderXML();
    ~CReportBuilderXML() override;

    bool Open() override;
    bool Close() override;

    bool BeginUUTTest(UUTTest* uutTest) override;
    bool BeginUnitUnderTest(UnitUnderTest* unit) override;
    bool BeginProductType(ProductType* productType) override;
    bool BeginProductionLot(ProductionLot* lot) override;
    bool BeginSession(ZYNSession* session) override;
    bool BeginFixture(Fixture* fixture) override;

    bool BeginTestResults() override;
    bool EndTestResults() override;
    bool BeginTestResultSet(TestResultSet* resultSet) override;
    bool EndTestResultSet(TestResultSet* resultSet) override;

    using CExportBuilderImp::BeginTestProgram;
    bool BeginTestProgram(TestProgram* program, TestResult* result) override;
    bool EndTestProgram(TestProgram* program) override;
    using CExportBuilderImp::BeginTestGroup;
    bool BeginTestGroup(TestGroup* group, TestResult* result) override;
    bool EndTestGroup(TestGroup* group) override;
    using CExportBuilderImp::BeginTestStep;
    bool BeginTestStep(TestStep* step, TestResult* result) override;
    bool EndTestStep(TestStep* step) override;
    using CExportBuilderImp::BeginTestParameter;
    bool BeginTestParameter(TestParameter* parameter, TestResult* result) override;
    using CExportBuilderImp::BeginTestMeasurement;
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

    const std::unique_ptr<UPrivateXMLWriter> writer;
};

} // namespace ZYN
