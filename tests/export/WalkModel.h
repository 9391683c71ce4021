#pragma once

// The small model that the walks are tested with.

#include "support/SampleProgram.h"

#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace ZYN::WalkModel {

using namespace Qt::StringLiterals;

/// A trace as it is written in a test: parted by commas and line ends, indented at will.
inline QStringList Trace(const QString& text)
{
    static const QRegularExpression part("\\s*[,\n]\\s*");
    return text.trimmed().split(part, Qt::SkipEmptyParts);
}

/// G1 has parameters A and B and the steps S1 (M1, M2) and S2 (no measurement), G2 has step S3 (M3).
struct Program {
    SampleModels::ProgramWriter writer{1, "P"};
    QSharedPointer<TestProgram> program = writer.program;
    QMap<QString, QSharedPointer<TestComponent>> components;

    Program()
    {
        const auto keep = [this](const QSharedPointer<TestComponent>& component) {
            components[component->GetName()] = component;
        };
        keep(program);
        keep(writer.Group(0, "G1"));
        keep(writer.Parameter(0, "A", ZYN_ADDRESS_PARAMETER));
        keep(writer.Parameter(0, "B", ZYN_ADDRESS_PARAMETER));
        keep(writer.Step(0, "S1"));
        keep(writer.Measurement(0, "M1", ZYN_ADDRESS_REAL));
        keep(writer.Measurement(0, "M2", ZYN_ADDRESS_REAL));
        keep(writer.Step(0, "S2"));
        keep(writer.Group(0, "G2"));
        keep(writer.Step(0, "S3"));
        keep(writer.Measurement(0, "M3", ZYN_ADDRESS_REAL));
    }

    /// A set in which every component but the named ones has a result that bears its name.
    TestResultSet* Run(long index, const QStringList& without = {}) const
    {
        SampleModels::RunWriter run(program, {}, index);
        for (const auto& component : components) {
            if (!without.contains(component->GetName()))
                run.Verdict(component, 0.0)->SetComment(component->GetName());
        }
        return run.Take();
    }

    void Hide(const QString& name) const { components[name]->SetLogInReportCtrl(new CtrlLogInReport(false)); }
};

/// A unit with everything in its header.
inline void FillHeader(UUTTest& test)
{
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(1, "board"));
    unit->SetProductType(QSharedPointer<ProductType>(new ProductType(1, "type")));
    test.SetUnitUnderTest(unit);
    test.SetProductionLot(QSharedPointer<ProductionLot>(new ProductionLot(1, "lot")));
    auto* const session = new ZYNSession;
    session->SetMachineName("machine");
    test.SetSession(session);
    test.SetFixture(QSharedPointer<Fixture>(new Fixture(1, "fixture")));
}

} // namespace ZYN::WalkModel
