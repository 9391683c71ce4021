#pragma once

// The small model that the walks are tested with.

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

#include <QtCore/QStringList>

namespace ZYN::WalkModel {

using namespace Qt::StringLiterals;

/// The lines of a text without indentation and blank lines.
inline QStringList Lines(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n')) {
        if (!line.trimmed().isEmpty())
            lines += line.trimmed();
    }
    return lines;
}

/// G1 has parameters A and B and the steps S1 (M1, M2) and S2 (no measurement), G2 has step S3 (M3).
struct Program {
    QSharedPointer<TestProgram> program{new TestProgram(1, u"P"_s, 0)};
    QMap<QString, QSharedPointer<TestComponent>> components{{u"P"_s, program}};

    Program()
    {
        const auto first = AddGroup(u"G1"_s);
        for (const QString& name : {u"A"_s, u"B"_s}) {
            const QSharedPointer<TestParameter> parameter(
                new TestParameter(0, name, ZYN_ADDRESS_PARAMETER, first.data(), 0, -1));
            first->AddParameter(parameter);
            components[name] = parameter;
        }
        AddStep(first, u"S1"_s, {u"M1"_s, u"M2"_s});
        AddStep(first, u"S2"_s, {});
        AddStep(AddGroup(u"G2"_s), u"S3"_s, {u"M3"_s});
    }

    /// A set in which every component but the named ones has a result that bears its name.
    TestResultSet* Run(long index, const QStringList& without = {}) const
    {
        auto* const set = new TestResultSet(program, {});
        set->SetTestIndex(index);
        for (auto row = components.begin(); row != components.end(); ++row) {
            if (without.contains(row.key()))
                continue;
            auto* const result = new TestResult(row.value());
            result->SetComment(row.key());
            set->AddResult(result);
        }
        return set;
    }

    void Hide(const QString& name) const { components[name]->SetLogInReportCtrl(new CtrlLogInReport(false)); }

private:
    QSharedPointer<TestGroup> AddGroup(const QString& name)
    {
        const QSharedPointer<TestGroup> group(
            new TestGroup(0, name, program.data(), 0, -1, ZYN_GROUP_USER, nullptr));
        program->AddGroup(group);
        components[name] = group;
        return group;
    }

    void AddStep(const QSharedPointer<TestGroup>& group, const QString& name, const QStringList& measurements)
    {
        const QSharedPointer<TestStep> step(new TestStep(0, name, group.data(), 0, -1, {}));
        group->AddStep(step);
        components[name] = step;
        for (const QString& measured : measurements) {
            const QSharedPointer<TestMeasurement> measurement(
                new TestMeasurement(0, measured, ZYN_ADDRESS_REAL, step.data(), 0, -1));
            step->AddMeasurement(measurement);
            components[measured] = measurement;
        }
    }
};

/// A unit with everything in its header.
inline void FillHeader(UUTTest& test)
{
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(1, u"board"_s));
    unit->SetProductType(QSharedPointer<ProductType>(new ProductType(1, u"type"_s)));
    test.SetUnitUnderTest(unit);
    test.SetProductionLot(QSharedPointer<ProductionLot>(new ProductionLot(1, u"lot"_s)));
    auto* const session = new ZYNSession;
    session->SetMachineName(u"machine"_s);
    test.SetSession(session);
    test.SetFixture(QSharedPointer<Fixture>(new Fixture(1, u"fixture"_s)));
}

} // namespace ZYN::WalkModel
