#include <ZYNCommon/ProductType.h>

#include <ZYNCommon/ProductTypeMultiPanel.h>

namespace ZYN {

ProductType::ProductType(long objectId, const QString& name)
    : ManagedObject(objectId, name)
    , m_multiPanel(QSharedPointer<ProductTypeMultiPanel>::create())
{
}

ProductType::~ProductType() = default;

QString ProductType::GetArticelCode() const
{
    return m_articelCode;
}

QString ProductType::GetCustomer() const
{
    return m_customer;
}

QString ProductType::GetDescription() const
{
    return m_description;
}

long ProductType::GetClusterLevel() const
{
    return m_clusterLevel;
}

QSharedPointer<ProductTypeMultiPanel> ProductType::GetMultiPanelInfo() const
{
    return m_multiPanel;
}

QList<int> ProductType::GetTestPrograms() const
{
    return m_testPrograms;
}

void ProductType::SetArticelCode(const QString& code)
{
    m_articelCode = code;
}

void ProductType::SetCustomer(const QString& customer)
{
    m_customer = customer;
}

void ProductType::SetDescription(const QString& description)
{
    m_description = description;
}

void ProductType::SetClusterLevel(long level)
{
    m_clusterLevel = level;
}

bool ProductType::IsValid() const
{
    return ManagedObject::IsValid();
}

void ProductType::AddTestProgram(int programId)
{
    if (!m_testPrograms.contains(programId))
        m_testPrograms.append(programId);
}

} // namespace ZYN
