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

class ManagedObject : public QObject {
public:
    ManagedObject(long number, QString name)
        : number(number)
        , name(std::move(name))
    {
    }
    virtual QString GetName() const { return name; }
    virtual QString GetParameter(const QString& key) const { return parameters.value(key); }
    virtual QMap<QString, QString> GetParameters() const { return parameters; }
    virtual bool HasParameter(const QString& key) const { return parameters.contains(key); }
    virtual void SetParameter(const QString& key, const QString& value) { parameters.insert(key, value); }
    virtual void SetParameters(const QMap<QString, QString>& table) { parameters = table; }
    virtual bool CanSaveProperty(const QString&) const { return true; }
    virtual bool IsValid() const { return true; }

    const long number;

private:
    QString name;
    QMap<QString, QString> parameters;
};

class CtrlEnable {
public:
    bool IsEnabled() const { return on; }
    void EnableOn() { on = true; }
    void EnableOff() { on = false; }

private:
    bool on = true;
};

class CtrlLogInReport {
public:
    bool GetLogInReport() const { return on; }
    void LogInReportOn() { on = true; }
    void LogInReportOff() { on = false; }

private:
    bool on = true;
};

class CtrlTestPlanValues {
public:
    bool GetLogInReport() const { return true; }
    bool IsEnabled() const { return true; }
};

class CtrlValidation {
public:
    QSharedPointer<ValidationInterface> GetValidation() const { return validation; }
    QSharedPointer<ValidationInterface> validation;
};

/// A component's attribute; in this model attributes are plain texts, and there are no categories.
class TestComponentAttr {
public:
    enum TestComponentAttrType : int { Text = 7 };
    static QString TypeToString(TestComponentAttrType) { return QStringLiteral("Text"); }
    QString name;
    QString text;
};

class CtrlAttributes {
public:
    QList<TestComponentAttr*> GetAttributes() const { return {}; }
};

class TestComponent : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    QString GetIdentString() const { return QStringLiteral("c%1").arg(number); }
    QString GetTypeString() const { return QStringLiteral("component"); }
    CtrlLogInReport* GetLogInReportCtrl() const { return logInReport.data(); }
    CtrlEnable* GetEnableCtrl() const { return nullptr; }
    virtual CtrlValidation* GetValidationCtrl() const { return nullptr; }
    CtrlAttributes* GetAttributesCtrl() const { return nullptr; }
    CtrlTestPlanValues* GetTestPlanValuesCtrl() const { return nullptr; }
    bool IsTestplanDisabled() const { return false; }
    void SetResult(TestResult* value) { result = value; }
    virtual QList<TestComponent*> GetChildren() const { return {}; }
    virtual TestProgram* GetTestProgram() const { return nullptr; }

    QSharedPointer<CtrlLogInReport> logInReport;
    TestResult* result = nullptr;
    EN_ZYN_ADDRESS kind = Nothing;
    unsigned int line = 0;
};

template <class Child>
QList<TestComponent*> AsComponents(const QList<QSharedPointer<Child>>& children)
{
    QList<TestComponent*> components;
    for (const QSharedPointer<Child>& child : children)
        components.append(child.data());
    return components;
}

class TestGroup;
class TestStep;

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
    CtrlValidation* GetValidationCtrl() const override { return &control; }

    mutable CtrlValidation control;
    EN_ZYN_RESULT own = Untested;
};

class TestStep : public TestComponent {
    Q_OBJECT
public:
    TestStep(long number, const QString& name, TestGroup*, unsigned int source, long, const QString&)
        : TestComponent(number, name)
    {
        line = source;
    }
    int GetMeasurementCount() const { return int(measurements.size()); }
    QSharedPointer<TestMeasurement> GetMeasurementForIndex(int index) const
    {
        return measurements.value(index);
    }
    QSharedPointer<TestMeasurement> GetMeasurementForID(long id) const
    {
        for (const QSharedPointer<TestMeasurement>& measurement : measurements)
            if (measurement->number == id)
                return measurement;
        return {};
    }
    int AddMeasurement(QSharedPointer<TestMeasurement> measurement)
    {
        measurements.append(measurement);
        return int(measurements.size()) - 1;
    }
    QList<TestComponent*> GetChildren() const override { return AsComponents(measurements); }

private:
    QList<QSharedPointer<TestMeasurement>> measurements;
};

class TestGroup : public TestComponent {
    Q_OBJECT
public:
    TestGroup(long number, const QString& name, TestProgram*, unsigned int source, long, EN_ZYN_GROUP group,
              void*)
        : TestComponent(number, name)
        , group(group)
    {
        line = source;
    }
    int GetParameterCount() const { return 0; }
    QSharedPointer<TestParameter> GetParameterForIndex(int) const { return {}; }
    int GetStepCount() const { return int(steps.size()); }
    QSharedPointer<TestStep> GetStepForIndex(int index) const { return steps.value(index); }
    int AddStep(QSharedPointer<TestStep> step)
    {
        steps.append(step);
        return int(steps.size()) - 1;
    }
    bool IsUserGroup() const { return group == MainTests; }
    QList<TestComponent*> GetChildren() const override { return AsComponents(steps); }

    const EN_ZYN_GROUP group;

private:
    QList<QSharedPointer<TestStep>> steps;
};

class TestProgram : public TestComponent {
    Q_OBJECT
public:
    TestProgram(long number, const QString& name, unsigned long)
        : TestComponent(number, name)
    {
    }
    int GetGroupCount() const { return int(groups.size()); }
    QSharedPointer<TestGroup> GetGroupForIndex(int index) const { return groups.value(index); }
    int AddGroup(QSharedPointer<TestGroup> group)
    {
        groups.append(group);
        return int(groups.size()) - 1;
    }
    QList<TestComponent*> GetChildren() const override { return AsComponents(groups); }
    QString GetDisplayName() const { return displayName; }
    QString GetCreator() const { return creator; }
    QString GetVersion() const { return version; }
    QString GetFileVersion() const { return {}; }
    const QFileInfo& GetFileInfo() const { return file; }
    void SetDisplayName(const QString& text) { displayName = text; }
    void SetCreator(const QString& text) { creator = text; }
    void SetVersion(const QString& text) { version = text; }
    void SetFileName(const char* name) { file.setFile(QString::fromUtf8(name)); }

private:
    QList<QSharedPointer<TestGroup>> groups;
    QString displayName;
    QString creator;
    QString version;
    QFileInfo file;
};

} // namespace ZYN
