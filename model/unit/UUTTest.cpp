#include <ZYNCommon/UUTTest.h>

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include "model/result/TimeText.h"
#include "model/result/WorstResult.h"
#include "text/DurationText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ZYN {

UUTTest::UUTTest(long testId, const QString& name)
    : ManagedObject(testId, name)
{
}

UUTTest::~UUTTest()
{
    qDeleteAll(m_resultSets);
    delete m_session;
}

QSharedPointer<UnitUnderTest> UUTTest::GetUnitUnderTest() const
{
    return m_unit;
}

QSharedPointer<ProductType> UUTTest::GetProductType() const
{
    const QSharedPointer<ProductType> productType = m_unit ? m_unit->GetProductType() : nullptr;
    return productType && productType->IsValid() ? productType : nullptr;
}

QSharedPointer<ProductionLot> UUTTest::GetProductionLot() const
{
    return m_lot;
}

QSharedPointer<Fixture> UUTTest::GetFixture() const
{
    return m_fixture;
}

ZYNSession* UUTTest::GetSession() const
{
    return m_session;
}

QList<TestResultSet*> UUTTest::GetResultSets() const
{
    return m_resultSets;
}

QList<QSharedPointer<UUTTest>> UUTTest::GetUUTTests() const
{
    return m_items;
}

EN_ZYN_RESULT UUTTest::GetResult() const
{
    if (m_result)
        return *m_result;
    WorstResult worst;
    for (const TestResultSet* const set : m_resultSets)
        worst.Add(set->GetVerdict(set->GetTestProgram().data()));
    for (const auto& item : m_items)
        worst.Add(item->GetResult());
    return worst.Get();
}

QString UUTTest::GetResultString() const
{
    return TestResult::ResultToString(GetResult());
}

QString UUTTest::GetResultDescription() const
{
    return m_description;
}

QString UUTTest::GetStartTimeString() const
{
    return m_startTime;
}

QString UUTTest::GetStopTimeString() const
{
    return m_stopTime;
}

QDateTime UUTTest::GetStartTime() const
{
    return TimeText::ToTime(m_startTime);
}

QDateTime UUTTest::GetStopTime() const
{
    return TimeText::ToTime(m_stopTime);
}

QString UUTTest::GetDurationString() const
{
    return DurationText::Milliseconds(m_duration);
}

QString UUTTest::GetDurationStringFormated() const
{
    return m_duration == 0.0 ? QString() : DurationText::ForPeople(m_duration);
}

long long UUTTest::GetDuration_ms() const
{
    constexpr double largest = 9e15;
    const double milliseconds = m_duration * 1000.0;
    return std::isfinite(milliseconds) && std::abs(milliseconds) < largest ? std::llround(milliseconds) : 0;
}

bool UUTTest::IsValid() const
{
    return m_unit && m_unit->IsValid();
}

void UUTTest::SetUnitUnderTest(QSharedPointer<UnitUnderTest> unit)
{
    m_unit = std::move(unit);
}

void UUTTest::SetProductionLot(QSharedPointer<ProductionLot> lot)
{
    m_lot = std::move(lot);
}

void UUTTest::SetFixture(QSharedPointer<Fixture> fixture)
{
    m_fixture = std::move(fixture);
}

void UUTTest::SetSession(ZYNSession* session)
{
    if (session == m_session)
        return;
    delete m_session;
    m_session = session;
}

void UUTTest::SetResult(EN_ZYN_RESULT result)
{
    m_result = result;
}

void UUTTest::SetResultDescription(const QString& description)
{
    m_description = description;
}

void UUTTest::SetStartTimeString(const QString& time)
{
    m_startTime = time;
}

void UUTTest::SetStopTimeString(const QString& time)
{
    m_stopTime = time;
}

void UUTTest::SetStartTime(const QDateTime& time)
{
    m_startTime = TimeText::FromTime(time);
}

void UUTTest::SetStopTime(const QDateTime& time)
{
    m_stopTime = TimeText::FromTime(time);
}

void UUTTest::SetDuration(double seconds)
{
    m_duration = seconds;
}

void UUTTest::AssignResultSet(TestResultSet* resultSet)
{
    if (!resultSet || std::exchange(resultSet->m_isOwned, true))
        return;
    m_resultSets.append(resultSet);
}

void UUTTest::AddUUTTest(QSharedPointer<UUTTest> test)
{
    if (test && !test->Contains(this))
        m_items.append(std::move(test));
}

bool UUTTest::Contains(const UUTTest* test) const
{
    return test == this || std::any_of(m_items.begin(), m_items.end(),
                                       [test](const auto& item) { return item->Contains(test); });
}

} // namespace ZYN
