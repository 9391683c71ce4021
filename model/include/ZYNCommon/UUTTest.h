#pragma once

#include <ZYNCommon/ManagedObject.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QSharedPointer>

#include <optional>

namespace ZYN {

class Fixture;
class ProductionLot;
class ProductType;
class TestResultSet;
class UnitUnderTest;
class ZYNSession;

/// The test of one unit: what was tested, where, when, and its result sets; for a panel also the tests
/// of its items.
///
/// Owns its session and its result sets. Everything else is shared.
class ZYNCOMMON_EXPORT UUTTest : public ManagedObject {
    Q_OBJECT
public:
    UUTTest(long id, const QString& name);
    ~UUTTest() override;

    /// Null for each of these means that the test has none.
    QSharedPointer<UnitUnderTest> GetUnitUnderTest() const;
    /// The product type of the unit; null when there is no unit or its product type is not valid.
    QSharedPointer<ProductType> GetProductType() const;
    QSharedPointer<ProductionLot> GetProductionLot() const;
    QSharedPointer<Fixture> GetFixture() const;
    ZYNSession* GetSession() const;
    QList<TestResultSet*> GetResultSets() const;
    /// The panel items' tests in panel order.
    QList<QSharedPointer<UUTTest>> GetUUTTests() const;

    /// The code that was set; else the worst of the result sets' programs and of the panel items.
    EN_ZYN_RESULT GetResult() const;
    QString GetResultString() const;
    QString GetResultDescription() const;
    /// ISO 8601 with offset, or verbatim what was set; empty when unknown.
    QString GetStartTimeString() const;
    QString GetStopTimeString() const;
    /// Invalid when the text is no ISO 8601 time.
    QDateTime GetStartTime() const;
    QDateTime GetStopTime() const;
    /// Duration in milliseconds as a plain number.
    QString GetDurationString() const;
    /// Duration for people; empty when it is 0 (not recorded).
    QString GetDurationStringFormated() const;
    /// Duration in milliseconds, rounded.
    long long GetDuration_ms() const;
    /// Whether there is a unit to be tested.
    bool IsValid() const override;

    void SetUnitUnderTest(QSharedPointer<UnitUnderTest> unit);
    void SetProductionLot(QSharedPointer<ProductionLot> lot);
    void SetFixture(QSharedPointer<Fixture> fixture);
    /// Takes ownership and deletes the session that was there.
    void SetSession(ZYNSession* session);
    void SetResult(EN_ZYN_RESULT result);
    void SetResultDescription(const QString& description);
    /// Kept verbatim.
    void SetStartTimeString(const QString& time);
    void SetStopTimeString(const QString& time);
    void SetStartTime(const QDateTime& time);
    void SetStopTime(const QDateTime& time);
    /// \param seconds duration in seconds
    void SetDuration(double seconds);
    /// Takes ownership; null and a set that belongs to a test already are ignored.
    void AssignResultSet(TestResultSet* resultSet);
    /// Null is ignored, and a test that is this one or contains it.
    void AddUUTTest(QSharedPointer<UUTTest> test);

private:
    /// Whether a test is this one or one of those below it.
    bool Contains(const UUTTest* test) const;

    QSharedPointer<UnitUnderTest> m_unit;
    QSharedPointer<ProductionLot> m_lot;
    QSharedPointer<Fixture> m_fixture;
    ZYNSession* m_session = nullptr;
    QList<TestResultSet*> m_resultSets;
    QList<QSharedPointer<UUTTest>> m_items;
    std::optional<EN_ZYN_RESULT> m_result;
    QString m_description;
    QString m_startTime;
    QString m_stopTime;
    double m_duration = 0.0;
};

} // namespace ZYN
