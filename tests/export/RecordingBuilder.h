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

#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace ZYN {

/// Writes down every call as one line: the operation, the object's name, and in brackets the comment of
/// the result that came with it ("none" for a null result; no brackets where no result is passed).
class RecordingBuilder : public IExportBuilder {
public:
    QStringList calls;
    /// Lines that are answered false.
    QSet<QString> refused;
    /// Lines after which the builder is no longer opened.
    QSet<QString> closing;
    bool opened = false;

    void SetProperty(const QString&, const QString&) override {}
    void SetDevice(QIODevice*) override {}
    QIODevice* GetDevice() override { return nullptr; }
    bool OpenFile(const QString&) override { return true; }
    void SetUseScaledData(bool) override {}
    bool GetUseScaledData() override { return false; }
    bool Open() override
    {
        opened = Record(QStringLiteral("Open"));
        return opened;
    }
    bool Close() override
    {
        opened = false;
        return Record(QStringLiteral("Close"));
    }
    bool IsOpened() override { return opened; }

#define ZYN_SLOT_NONE(name)                                                                                  \
    bool name() override                                                                                     \
    {                                                                                                        \
        return Record(QStringLiteral(#name));                                                                \
    }
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    bool name(Model* object) override                                                                        \
    {                                                                                                        \
        return Record(QStringLiteral(#name " ") + NameOf(object));                                           \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    bool name(Component* component, TestResult* result) override                                             \
    {                                                                                                        \
        return Record(QStringLiteral(#name " ") + NameOf(component) + NameOf(result));                       \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT

private:
    bool Record(const QString& line)
    {
        calls += line;
        if (closing.contains(line))
            opened = false;
        return !refused.contains(line);
    }

    static QString NameOf(const ManagedObject* object)
    {
        return object ? object->GetName() : QStringLiteral("null");
    }
    static QString NameOf(const TestResult* result)
    {
        return QLatin1Char('(') + (result ? result->GetComment() : QStringLiteral("none")) + QLatin1Char(')');
    }
    static QString NameOf(const TestResultSet* set)
    {
        return set ? QStringLiteral("#%1").arg(set->GetTestIndex()) : QStringLiteral("null");
    }
    static QString NameOf(const ZYNSession* session)
    {
        return session ? session->GetMachineName() : QStringLiteral("null");
    }
    static QString NameOf(const StatisticsData* data)
    {
        return data ? data->GetComponent()->GetName() : QStringLiteral("null");
    }
};

} // namespace ZYN
