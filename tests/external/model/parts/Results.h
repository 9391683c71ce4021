#pragma once

#include "Units.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QHash>

/// \file
/// Results of components, of runs and of units; statistics of them.

namespace ZYN {

inline QString VerdictText(EN_ZYN_RESULT result)
{
    return result < 0 ? QStringLiteral("bad") : QStringLiteral("good");
}

class TestResult {
public:
    explicit TestResult(QSharedPointer<TestComponent> component)
        : component(component)
    {
    }
    EN_ZYN_RESULT GetResult() const { return result; }
    QString GetResultString() const { return VerdictText(result); }
    QString GetValueTypeString() const { return QString::fromLatin1(value.typeName()); }
    QString GetBaseUnitString() const { return {}; }
    QString GetComment() const { return comment; }
    QString GetAttribute() const { return attribute; }
    QString GetTimeString() const { return {}; }
    QString GetDurationString() const { return QString::number(duration * 1000); }
    QString GetDurationStringFormated() const { return QStringLiteral("%1 s").arg(duration); }
    QVariant GetValue() const { return value; }
    QString GetValueString(const ValueDisplay*) const { return value.toString(); }
    QString GetLowerLimitString(const ValueDisplay*) const
    {
        return validation ? validation->GetLowerLimitText() : QString();
    }
    QString GetUpperLimitString(const ValueDisplay*) const
    {
        return validation ? validation->GetUpperLimitText() : QString();
    }
    QString GetUnitString(const ValueDisplay*, bool) const { return {}; }
    double GetDuration() const { return duration; }
    QSharedPointer<ValidationInterface> GetValidation() const { return validation; }
    void SetResult(EN_ZYN_RESULT verdict) { result = verdict; }
    void SetValue(const QVariant& measured) { value = measured; }
    void SetComment(const QString& text) { comment = text; }
    void SetAttribute(const QString& text) { attribute = text; }
    void SetDuration(double seconds) { duration = seconds; }
    void SetValidation(QSharedPointer<ValidationInterface> limits) { validation = limits; }

    const QSharedPointer<TestComponent> component;

private:
    EN_ZYN_RESULT result = Untested;
    QVariant value;
    QString comment;
    QString attribute;
    double duration = 0;
    QSharedPointer<ValidationInterface> validation;
};

class TestResultSet : public QObject {
    Q_OBJECT
public:
    TestResultSet(QSharedPointer<TestProgram> program, QSharedPointer<Station> station)
        : program(program)
        , station(station)
    {
    }
    ~TestResultSet() override { qDeleteAll(results); }
    QSharedPointer<TestProgram> GetTestProgram() const { return program; }
    TestResult* GetResult(TestComponent* component) const { return results.value(component); }
    void AddResult(TestResult* result) { results.insert(result->component.data(), result); }
    long GetTestIndex() const { return index; }
    void SetTestIndex(long value) { index = value; }
    long GetStationID() const { return station ? station->number : 0; }
    QString GetStationDescription() const { return station ? station->description : QString(); }
    int GetFaildStepCount() const { return 0; }
    QList<QString> GetFailedTestGroups() const { return {}; }

private:
    QSharedPointer<TestProgram> program;
    QSharedPointer<Station> station;
    QHash<TestComponent*, TestResult*> results;
    long index = 0;
};

class UUTTest : public ManagedObject {
    Q_OBJECT
public:
    using ManagedObject::ManagedObject;
    ~UUTTest() override
    {
        qDeleteAll(sets);
        delete session;
    }
    QSharedPointer<UnitUnderTest> GetUnitUnderTest() const { return unit; }
    QSharedPointer<ProductType> GetProductType() const { return unit ? unit->GetProductType() : nullptr; }
    QSharedPointer<ProductionLot> GetProductionLot() const { return lot; }
    QSharedPointer<Fixture> GetFixture() const { return {}; }
    ZYNSession* GetSession() const { return session; }
    QList<TestResultSet*> GetResultSets() const { return sets; }
    QList<QSharedPointer<UUTTest>> GetUUTTests() const { return items; }
    EN_ZYN_RESULT GetResult() const { return result; }
    QString GetResultString() const { return VerdictText(result); }
    QString GetResultDescription() const { return description; }
    QString GetStartTimeString() const { return start; }
    QString GetStopTimeString() const { return stop; }
    QDateTime GetStartTime() const { return QDateTime::fromString(start, Qt::ISODate); }
    QDateTime GetStopTime() const { return QDateTime::fromString(stop, Qt::ISODate); }
    QString GetDurationString() const { return QString::number(GetDuration_ms()); }
    QString GetDurationStringFormated() const { return QStringLiteral("%1 s").arg(duration); }
    long long GetDuration_ms() const { return llround(duration * 1000); }
    void SetUnitUnderTest(QSharedPointer<UnitUnderTest> value) { unit = value; }
    void SetProductionLot(QSharedPointer<ProductionLot> value) { lot = value; }
    void SetSession(ZYNSession* value) { delete std::exchange(session, value); }
    void SetResult(EN_ZYN_RESULT verdict) { result = verdict; }
    void SetResultDescription(const QString& text) { description = text; }
    void SetStartTimeString(const QString& text) { start = text; }
    void SetStopTimeString(const QString& text) { stop = text; }
    void SetDuration(double seconds) { duration = seconds; }
    void AssignResultSet(TestResultSet* set) { sets.append(set); }
    void AddUUTTest(QSharedPointer<UUTTest> item) { items.append(item); }

private:
    QSharedPointer<UnitUnderTest> unit;
    QSharedPointer<ProductionLot> lot;
    ZYNSession* session = nullptr;
    QList<TestResultSet*> sets;
    QList<QSharedPointer<UUTTest>> items;
    EN_ZYN_RESULT result = Untested;
    QString description;
    QString start;
    QString stop;
    double duration = 0;
};

class StatisticsData {
public:
    TestComponent* GetComponent() const { return component.data(); }
    TestResult* GetResult(int index) const { return results.value(index); }
    int Size() const { return int(results.size()); }
    int GetNrPass() const { return Size(); }
    int GetNrFail() const { return 0; }
    bool HasStatisticDetails() const { return false; }

    QSharedPointer<TestComponent> component;
    QList<TestResult*> results;
};

class StatisticsDataReport {
public:
    ZYNSession* GetSession() const { return nullptr; }
    QSharedPointer<ProductType> GetProductType() const { return {}; }
    QSharedPointer<UnitUnderTest> GetUnitUnderTest() const { return {}; }
    QSharedPointer<TestProgram> GetTestProgram() const { return program; }
    QList<StatisticsData*> GetTestData() const { return data; }

    QSharedPointer<TestProgram> program;
    QList<StatisticsData*> data;
};

class StatisticsDataDecoration {
public:
    explicit StatisticsDataDecoration(const StatisticsData*) {}
    virtual ~StatisticsDataDecoration() = default;
    virtual QString GetMin() const { return {}; }
    virtual QString GetMax() const { return {}; }
    virtual QString GetAverage() const { return {}; }
    virtual QString GetSigma() const { return {}; }
    virtual QString GetCPK() const { return {}; }
    virtual QString GetLowerLimit() const { return {}; }
    virtual QString GetUpperLimit() const { return {}; }
    virtual QString GetUnitString() const { return {}; }
    virtual void SetUseScaledData(bool) {}
};

class TestPlanCategory;

class TestPlanData {
public:
    void SetProperty(const QString& name, const QVariant& value) { properties.insert(name, value); }
    inline void AddCategory(TestPlanCategory* category);
    inline ~TestPlanData();
    QMap<QString, QVariant> properties;
    QList<TestPlanCategory*> categories;
};

class TestPlanCategory {
public:
    explicit TestPlanCategory(const QString&) {}
    ~TestPlanCategory() { delete attributes; }
    void SetAttributes(TestPlanData* data) { delete std::exchange(attributes, data); }
    TestPlanData* attributes = nullptr;
};

inline void TestPlanData::AddCategory(TestPlanCategory* category)
{
    categories.append(category);
}

inline TestPlanData::~TestPlanData()
{
    qDeleteAll(categories);
}

class TestPlan {
public:
    explicit TestPlan(QFileInfo) {}
    ~TestPlan() { qDeleteAll(data); }
    void AddProperties(const QString&, TestPlanData* values) { data.append(values); }
    void AddValidation(const QString&, TestPlanData* values) { data.append(values); }
    void AddAttributes(const QString&, TestPlanData* values) { data.append(values); }

private:
    QList<TestPlanData*> data;
};

class ZYNAppType {
public:
    enum Type : int { Engine };
};

class ZYNApplication {
public:
    static QString GetVersion(ZYNAppType::Type) { return QStringLiteral("stand-in 9.9"); }
};

class ZYNTools {
public:
    static QDir GetMediaDir() { return QDir(QStringLiteral("/nonexistent")); }
    static QString AddressToDataTypeString(EN_ZYN_ADDRESS) { return QStringLiteral("value"); }
};

} // namespace ZYN
