#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>

namespace ZYN {

class ProductType;
class StatisticsData;
class TestProgram;
class UnitUnderTest;
class ZYNSession;

/// A statistics report: what was tested and one entry per test component. Owns its session and its
/// entries; the rest is shared. Null means that the report has none.
class ZYNCOMMON_EXPORT StatisticsDataReport {
public:
    StatisticsDataReport();
    ~StatisticsDataReport();
    StatisticsDataReport(const StatisticsDataReport&) = delete;
    StatisticsDataReport& operator=(const StatisticsDataReport&) = delete;

    ZYNSession* GetSession() const;
    QSharedPointer<ProductType> GetProductType() const;
    QSharedPointer<UnitUnderTest> GetUnitUnderTest() const;
    QSharedPointer<TestProgram> GetTestProgram() const;
    /// Entries in their order; owned by this object.
    QList<StatisticsData*> GetTestData() const;

    /// Takes ownership and deletes the session that was there.
    void SetSession(ZYNSession* session);
    void SetProductType(QSharedPointer<ProductType> productType);
    void SetUnitUnderTest(QSharedPointer<UnitUnderTest> unit);
    void SetTestProgram(QSharedPointer<TestProgram> program);
    /// Takes ownership; null and an entry that belongs to a report already are ignored.
    void AddTestData(StatisticsData* data);

private:
    ZYNSession* m_session = nullptr;
    QSharedPointer<ProductType> m_productType;
    QSharedPointer<UnitUnderTest> m_unit;
    QSharedPointer<TestProgram> m_program;
    QList<StatisticsData*> m_data;
};

} // namespace ZYN
