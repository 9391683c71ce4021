#pragma once

#include "export/CExportBuilderImp.h"

#include <memory>

namespace ZYN {

class TestComponent;
class TestComponentAttr;
class UPrivateXMLWriter;
class ValidationInterface;

/// Writes the test plan of a program as XML, version 3.0.0.
///
/// UTF-8, indented. Per component, in the order of the walk: "Validation", "Attributes", "Properties",
/// each only where the component has it. Units are written as text. Left out: components that are
/// disabled for test plans, properties without a value and, if asked for, those about bin ids. A plan
/// to which no component contributed leaves no file.
///
/// `Close` keeps the device, so that a file that was made by somebody else stays open for its owner.
class CTestPlanBuilderXML : public CExportBuilderImp {
public:
    /// \param excludeBinIds leave out validation properties whose name contains "BinId"
    explicit CTestPlanBuilderXML(bool excludeBinIds);
    ~CTestPlanBuilderXML() override;

    bool Open() override;
    bool Close() override;

    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestParameter;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;
    bool BeginTestProgram(TestProgram* program) override;
    bool BeginTestGroup(TestGroup* group) override;
    bool BeginTestStep(TestStep* step) override;
    bool BeginTestParameter(TestParameter* parameter) override;
    bool BeginTestMeasurement(TestMeasurement* measurement) override;
    bool EndTestProgram(TestProgram* program) override;

private:
    bool WriteComponent(TestComponent* component);
    bool WriteValidation(const TestComponent* component);
    void WriteValidationProperty(const QString& name, const ValidationInterface* validation);
    bool WriteAttributes(const TestComponent* component);
    void WriteItems(const QList<TestComponentAttr*>& items);
    void WriteAttribute(const TestComponentAttr* item);
    bool WriteProperties(TestComponent* component);

    qint32 m_componentsWritten = 0;
    const std::unique_ptr<UPrivateXMLWriter> m_writer;
    const bool m_excludeBinIds;
};

} // namespace ZYN
