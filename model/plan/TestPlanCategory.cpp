#include <ZYNCommon/TestPlanCategory.h>

#include <ZYNCommon/TestPlanData.h>

#include <utility>

namespace ZYN {

TestPlanCategory::TestPlanCategory(const QString& name)
    : m_name(name)
{
}

TestPlanCategory::~TestPlanCategory()
{
    delete m_attributes; // which takes nested categories apart in a loop
}

QString TestPlanCategory::GetName() const
{
    return m_name;
}

void TestPlanCategory::SetAttributes(TestPlanData* attributes)
{
    if (attributes == m_attributes || (attributes && std::exchange(attributes->m_isOwned, true)))
        return;
    delete m_attributes;
    m_attributes = attributes;
}

TestPlanData* TestPlanCategory::GetAttributes() const
{
    return m_attributes;
}

} // namespace ZYN
