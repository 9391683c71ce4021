#pragma once

#include "export/CExportBuilderImp.h"

#include <QtCore/QByteArrayList>
#include <QtCore/QJsonObject>

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
    /// Header items of a unit go to the panel items inside one, else to the unit's own information.
    QByteArrayList& UnitItems() { return m_inSubUnitTest ? m_panelItems : m_information; }
    void AddToProgram(const QJsonObject& item);
    void BeginItem(const QJsonObject& item, const QString& key);
    void EndItem();

    bool m_inSubUnitTest = false;
    bool m_hasSubUnitTests = false;
    QByteArrayList m_information;
    QByteArrayList m_panelItems;
    QByteArrayList m_programs;
    /// A panel item ends with the program that was written last.
    QByteArray m_lastProgram = "{}";
    /// The program that is being walked, as compact text: a tree of it takes several times the memory.
    QByteArray m_text;
    /// What follows the children of the items that are open, the innermost last.
    QByteArrayList m_tails;
};

} // namespace ZYN
