#pragma once

#include "export/IExportBuilder.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/StatisticsData.h>
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

namespace ZYN {

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

} // namespace ZYN
