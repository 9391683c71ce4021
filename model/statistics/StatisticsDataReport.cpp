#include <ZYNCommon/StatisticsDataReport.h>

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <utility>

namespace ZYN {

StatisticsDataReport::StatisticsDataReport() = default;

StatisticsDataReport::~StatisticsDataReport()
{
    qDeleteAll(m_data);
    delete m_session;
}

ZYNSession* StatisticsDataReport::GetSession() const
{
    return m_session;
}

QSharedPointer<ProductType> StatisticsDataReport::GetProductType() const
{
    return m_productType;
}

QSharedPointer<UnitUnderTest> StatisticsDataReport::GetUnitUnderTest() const
{
    return m_unit;
}

QSharedPointer<TestProgram> StatisticsDataReport::GetTestProgram() const
{
    return m_program;
}

QList<StatisticsData*> StatisticsDataReport::GetTestData() const
{
    return m_data;
}

void StatisticsDataReport::SetSession(ZYNSession* session)
{
    if (session == m_session)
        return;
    delete m_session;
    m_session = session;
}

void StatisticsDataReport::SetProductType(QSharedPointer<ProductType> productType)
{
    m_productType = std::move(productType);
}

void StatisticsDataReport::SetUnitUnderTest(QSharedPointer<UnitUnderTest> unit)
{
    m_unit = std::move(unit);
}

void StatisticsDataReport::SetTestProgram(QSharedPointer<TestProgram> program)
{
    m_program = std::move(program);
}

void StatisticsDataReport::AddTestData(StatisticsData* data)
{
    if (data && !std::exchange(data->m_isOwned, true))
        m_data.append(data);
}

} // namespace ZYN
