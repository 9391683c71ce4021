#pragma once

#include "support/SampleProgram.h"

#include "export/IExportBuilder.h"

#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QRegularExpression>

/// The small model that the walks are tested with, and a builder that writes the walk down.
namespace ZYN::RecordedWalk {

/// A trace as it is written in a test: parted by commas and line ends, indented at will.
inline QStringList Trace(const QString& text)
{
    static const QRegularExpression part("\\s*[,\n]\\s*");
    return text.trimmed().split(part, Qt::SkipEmptyParts);
}

/// G1 has parameters A and B and the steps S1 (M1, M2) and S2 (no measurement), G2 has step S3 (M3).
struct WalkedProgram {
    SampleModels::ProgramWriter writer{1, "P"};
    QSharedPointer<TestProgram> program = writer.program;
    QMap<QString, QSharedPointer<TestComponent>> components;

    WalkedProgram()
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

/// Writes down every call as one line: the operation, the object's name, and in brackets the comment of
/// the result that came with it ("none" for a null result; no brackets where no result is passed).
class RecordingBuilder : public IExportBuilder {
public:
    QStringList calls;
    /// Lines that are answered false.
    QStringList refused;
    /// Lines after which the builder is no longer opened.
    QStringList closing;
    bool opened = false;

    /// The calls with "X" for a "BeginX" that is ended at once.
    QStringList Trace() const
    {
        QStringList trace;
        for (const QString& call : calls) {
            const bool atOnce = call.startsWith("End") && !trace.isEmpty() &&
                                trace.last().section('(', 0, 0) == "Begin" + call.sliced(3);
            if (atOnce)
                trace.last().remove(0, 5);
            else
                trace += call;
        }
        return trace;
    }

    void SetProperty(const QString& key, const QString& value) override { Record(key + '=' + value); }
    void SetDevice(QIODevice* newDevice) override { device = newDevice; }
    QIODevice* GetDevice() override { return device; }
    bool OpenFile(const QString&) override { return true; }
    void SetUseScaledData(bool flag) override { scaled = flag; }
    bool GetUseScaledData() override { return scaled; }
    bool Open() override
    {
        opened = Record("Open");
        return opened;
    }
    bool Close() override
    {
        opened = false;
        return Record("Close");
    }
    bool IsOpened() override { return opened; }

#define ZYN_SLOT_NONE(name)                                                                                  \
    bool name() override                                                                                     \
    {                                                                                                        \
        return Record(QString(#name));                                                                       \
    }
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    bool name(Model* object) override                                                                        \
    {                                                                                                        \
        return Record(#name " " + NameOf(object));                                                           \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    bool name(Component* component, TestResult* result) override                                             \
    {                                                                                                        \
        return Record(#name " " + NameOf(component) + NameOf(result));                                       \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT

private:
    QIODevice* device = nullptr;
    bool scaled = false;

    bool Record(const QString& line)
    {
        calls += line;
        if (closing.contains(line))
            opened = false;
        return !refused.contains(line);
    }

    static QString NameOf(const ManagedObject* object)
    {
        return object ? object->GetName() : "null";
    }
    static QString NameOf(const TestResult* result)
    {
        return QString('(') + (result ? result->GetComment() : "none") + ')';
    }
    static QString NameOf(const TestResultSet* set)
    {
        return set ? QString("#%1").arg(set->GetTestIndex()) : "null";
    }
    static QString NameOf(const ZYNSession* session)
    {
        return session ? session->GetMachineName() : "null";
    }
    static QString NameOf(const StatisticsData* data)
    {
        return data ? data->GetComponent()->GetName() : "null";
    }
};

} // namespace ZYN::RecordedWalk
