#include <ZYNCommon/TestPlanData.h>

#include <ZYNCommon/TestPlanCategory.h>

#include <utility>

namespace ZYN {

TestPlanData::TestPlanData() = default;

TestPlanData::~TestPlanData()
{
    // Each category hands its own categories over before it goes, so that depth costs no stack.
    QList<TestPlanCategory*> pending = std::exchange(m_categories, {});
    while (!pending.isEmpty()) {
        TestPlanCategory* const category = pending.takeLast();
        if (category->m_attributes)
            pending += std::exchange(category->m_attributes->m_categories, {});
        delete category;
    }
}

void TestPlanData::SetProperty(const QString& name, const QVariant& value)
{
    if (!m_values.contains(name))
        m_names.append(name);
    m_values.insert(name, value);
}

void TestPlanData::AddCategory(TestPlanCategory* category)
{
    if (category && !std::exchange(category->m_isOwned, true))
        m_categories.append(category);
}

QStringList TestPlanData::GetPropertyNames() const
{
    return m_names;
}

QVariant TestPlanData::GetProperty(const QString& name) const
{
    return m_values.value(name);
}

bool TestPlanData::HasProperty(const QString& name) const
{
    return m_values.contains(name);
}

QList<TestPlanCategory*> TestPlanData::GetCategories() const
{
    return m_categories;
}

} // namespace ZYN
