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
    return result < 0 ? "bad" : "good";
}

class TestResult {
public:
    explicit TestResult(QSharedPointer<TestComponent> component)
        : component(component)
    {
    }
    QString GetResultString() const { return VerdictText(Result); }
    QString GetValueTypeString() const { return Value.typeName(); }
    QString GetBaseUnitString() const { return {}; }
    QString GetTimeString() const { return {}; }
    QString GetDurationString() const { return QString::number(Duration * 1000); }
    QString GetDurationStringFormated() const { return QString("%1 s").arg(Duration); }
    QString GetValueString(const ValueDisplay*) const { return Value.toString(); }
    QString GetLowerLimitString(const ValueDisplay*) const
    {
        return Validation ? Validation->GetLowerLimitText() : "";
    }
    QString GetUpperLimitString(const ValueDisplay*) const
    {
        return Validation ? Validation->GetUpperLimitText() : "";
    }
    QString GetUnitString(const ValueDisplay*, bool) const { return {}; }
    PROPERTY(EN_ZYN_RESULT, Result)
    PROPERTY(QVariant, Value)
    PROPERTY(QString, Comment)
    PROPERTY(QString, Attribute)
    PROPERTY(double, Duration)
    PROPERTY(QSharedPointer<ValidationInterface>, Validation)
    const QSharedPointer<TestComponent> component;
};

class TestResultSet {
public:
    TestResultSet(QSharedPointer<ZYN::TestProgram> program, QSharedPointer<Station> station)
        : TestProgram(program)
        , station(station)
    {
    }
    ~TestResultSet() { qDeleteAll(results); }
    TestResult* GetResult(TestComponent* component) const { return results.value(component); }
    void AddResult(TestResult* result) { results.insert(result->component.data(), result); }
    long GetStationID() const { return station ? station->number : 0; }
    QString GetStationDescription() const { return station ? station->Description : ""; }
    int GetFaildStepCount() const { return 0; }
    QList<QString> GetFailedTestGroups() const { return {}; }
    ANSWER(QSharedPointer<ZYN::TestProgram>, TestProgram)
    PROPERTY(long, TestIndex)
    QSharedPointer<Station> station;
    QHash<TestComponent*, TestResult*> results;
};

class UUTTest : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    ~UUTTest() override
    {
        qDeleteAll(ResultSets);
        delete session;
    }
    QSharedPointer<ProductType> GetProductType() const
    {
        return UnitUnderTest ? UnitUnderTest->ProductType : nullptr;
    }
    QSharedPointer<Fixture> GetFixture() const { return {}; }
    ZYNSession* GetSession() const { return session; }
    void SetSession(ZYNSession* value) { delete std::exchange(session, value); }
    QString GetResultString() const { return VerdictText(Result); }
    QDateTime GetStartTime() const { return QDateTime::fromString(StartTimeString, Qt::ISODate); }
    QDateTime GetStopTime() const { return QDateTime::fromString(StopTimeString, Qt::ISODate); }
    QString GetDurationString() const { return QString::number(GetDuration_ms()); }
    QString GetDurationStringFormated() const { return QString("%1 s").arg(Duration); }
    long long GetDuration_ms() const { return llround(Duration * 1000); }
    void AssignResultSet(TestResultSet* set) { ResultSets.append(set); }
    void AddUUTTest(QSharedPointer<UUTTest> item) { UUTTests.append(item); }
    PROPERTY(QSharedPointer<ZYN::UnitUnderTest>, UnitUnderTest)
    PROPERTY(QSharedPointer<ZYN::ProductionLot>, ProductionLot)
    ANSWER(QList<TestResultSet*>, ResultSets)
    ANSWER(QList<QSharedPointer<UUTTest>>, UUTTests)
    PROPERTY(EN_ZYN_RESULT, Result)
    PROPERTY(QString, ResultDescription)
    PROPERTY(QString, StartTimeString)
    PROPERTY(QString, StopTimeString)
    PROPERTY(double, Duration)
    ZYNSession* session = nullptr;
};

class StatisticsData {
public:
    TestComponent* GetComponent() const { return nullptr; }
    TestResult* GetResult(int) const { return nullptr; }
    int Size() const { return 0; }
    int GetNrPass() const { return 0; }
    int GetNrFail() const { return 0; }
    bool HasStatisticDetails() const { return false; }
};

class StatisticsDataReport {
public:
    ZYNSession* GetSession() const { return nullptr; }
    QSharedPointer<ProductType> GetProductType() const { return {}; }
    QSharedPointer<UnitUnderTest> GetUnitUnderTest() const { return {}; }
    QSharedPointer<TestProgram> GetTestProgram() const { return {}; }
    QList<StatisticsData*> GetTestData() const { return {}; }
};

class StatisticsDataDecoration {
public:
    explicit StatisticsDataDecoration(const StatisticsData*) {}
    void SetUseScaledData(bool) {}
    ANSWER(QString, Min)
    ANSWER(QString, Max)
    ANSWER(QString, Average)
    ANSWER(QString, Sigma)
    ANSWER(QString, CPK)
    ANSWER(QString, LowerLimit)
    ANSWER(QString, UpperLimit)
    ANSWER(QString, UnitString)
};

/// Plans are written, not read: what is read from a file is forgotten.
class TestPlanCategory;
class TestPlanData {
public:
    void SetProperty(const QString&, const QVariant&) {}
    void AddCategory(TestPlanCategory*) {}
};

class TestPlanCategory {
public:
    explicit TestPlanCategory(const QString&) {}
    void SetAttributes(TestPlanData*) {}
};

class TestPlan {
public:
    explicit TestPlan(QFileInfo) {}
    void AddProperties(const QString&, TestPlanData*) {}
    void AddValidation(const QString&, TestPlanData*) {}
    void AddAttributes(const QString&, TestPlanData*) {}
};

class ZYNAppType {
public:
    enum Type : int { Engine };
};

class ZYNApplication {
public:
    static QString GetVersion(ZYNAppType::Type) { return "stand-in 9.9"; }
};

class ZYNTools {
public:
    static QDir GetMediaDir() { return QDir("/nonexistent"); }
    static QString AddressToDataTypeString(EN_ZYN_ADDRESS) { return "value"; }
};

} // namespace ZYN
