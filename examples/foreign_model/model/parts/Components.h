#pragma once

#include "Values.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QObject>

/// \file
/// Components of a test program and their control objects.

namespace ZYN {

class TestResult;
class TestProgram;
class TestGroup;
class TestStep;

class ManagedObject : public QObject {
public:
    ManagedObject(long number, QString name)
        : Name(std::move(name))
        , number(number)
    {
    }
    void SetParameter(const QString& key, const QString& value) { Parameters.insert(key, value); }
    ANSWER(QString, Name)
    using Texts = QMap<QString, QString>;
    PROPERTY(Texts, Parameters)
    const long number;
};

class CtrlEnable {
public:
    bool IsEnabled() const { return on; }
    void EnableOn() { on = true; }
    void EnableOff() { on = false; }
    bool on = true;
};

class CtrlLogInReport {
public:
    void LogInReportOn() { LogInReport = true; }
    void LogInReportOff() { LogInReport = false; }
    ANSWER(bool, LogInReport)
};

class CtrlTestPlanValues {
public:
    bool GetLogInReport() const { return true; }
    bool IsEnabled() const { return true; }
};

class CtrlValidation {
public:
    ANSWER(QSharedPointer<ValidationInterface>, Validation)
};

/// A component's attribute; in this model attributes are plain texts, and there are no categories.
class TestComponentAttr {
public:
    enum TestComponentAttrType : int { Text = 7 };
    QString name;
    QString text;
};

class CtrlAttributes {
public:
    ANSWER(QList<TestComponentAttr*>, Attributes)
};

class TestComponent : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    QString GetIdentString() const { return QString::number(number); }
    QString GetTypeString() const { return "component"; }
    CtrlLogInReport* GetLogInReportCtrl() const { return nullptr; }
    CtrlEnable* GetEnableCtrl() const { return nullptr; }
    CtrlValidation* GetValidationCtrl() const { return &control; }
    CtrlAttributes* GetAttributesCtrl() const { return nullptr; }
    CtrlTestPlanValues* GetTestPlanValuesCtrl() const { return nullptr; }
    bool IsTestplanDisabled() const { return false; }
    virtual TestProgram* GetTestProgram() const { return nullptr; }
    PROPERTY(TestResult*, Result)
    mutable CtrlValidation control;
    EN_ZYN_ADDRESS kind = Nothing;
    unsigned int line = 0;
};

class TestParameter : public TestComponent {
public:
    using TestComponent::TestComponent;
};

class TestMeasurement : public TestComponent {
    Q_OBJECT
public:
    TestMeasurement(long number, const QString& name, EN_ZYN_ADDRESS address, TestStep*, unsigned int source,
                    long)
        : TestComponent(number, name)
    {
        kind = address;
        line = source;
    }
    EN_ZYN_RESULT own = Untested;
};

/// A component with children of one kind.
template <class Child>
class ParentOf : public TestComponent {
public:
    ParentOf(long number, const QString& name, unsigned int source)
        : TestComponent(number, name)
    {
        line = source;
    }
    int Add(QSharedPointer<Child> child)
    {
        children.append(child);
        return int(children.size()) - 1;
    }
    QList<QSharedPointer<Child>> children;
};

class TestStep : public ParentOf<TestMeasurement> {
public:
    TestStep(long number, const QString& name, TestGroup*, unsigned int source, long, const QString&)
        : ParentOf(number, name, source)
    {
    }
    int GetMeasurementCount() const { return int(children.size()); }
    QSharedPointer<TestMeasurement> GetMeasurementForIndex(int index) const { return children.value(index); }
    QSharedPointer<TestMeasurement> GetMeasurementForID(long id) const
    {
        for (const QSharedPointer<TestMeasurement>& measurement : children)
            if (measurement->number == id)
                return measurement;
        return {};
    }
    int AddMeasurement(QSharedPointer<TestMeasurement> measurement) { return Add(measurement); }
};

class TestGroup : public ParentOf<TestStep> {
public:
    TestGroup(long number, const QString& name, TestProgram*, unsigned int source, long, EN_ZYN_GROUP group,
              void*)
        : ParentOf(number, name, source)
        , group(group)
    {
    }
    int GetParameterCount() const { return 0; }
    QSharedPointer<TestParameter> GetParameterForIndex(int) const { return {}; }
    int GetStepCount() const { return int(children.size()); }
    QSharedPointer<TestStep> GetStepForIndex(int index) const { return children.value(index); }
    int AddStep(QSharedPointer<TestStep> step) { return Add(step); }
    bool IsUserGroup() const { return group == MainTests; }
    const EN_ZYN_GROUP group;
};

class TestProgram : public ParentOf<TestGroup> {
public:
    TestProgram(long number, const QString& name, unsigned long)
        : ParentOf(number, name, 0)
    {
    }
    int GetGroupCount() const { return int(children.size()); }
    QSharedPointer<TestGroup> GetGroupForIndex(int index) const { return children.value(index); }
    int AddGroup(QSharedPointer<TestGroup> group) { return Add(group); }
    QString GetFileVersion() const { return {}; }
    const QFileInfo& GetFileInfo() const { return file; }
    void SetFileName(const char* name) { file.setFile(name); }
    PROPERTY(QString, DisplayName)
    PROPERTY(QString, Creator)
    PROPERTY(QString, Version)
    QFileInfo file;
};

} // namespace ZYN
