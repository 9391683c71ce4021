#include <ZYNCommon/UnitUnderTest.h>

#include <ZYNCommon/ProductType.h>

namespace ZYN {

UnitUnderTest::UnitUnderTest(long objectId, const QString& name)
    : ManagedObject(objectId, name)
{
}

UnitUnderTest::~UnitUnderTest() = default;

QString UnitUnderTest::GetSerialNo() const
{
    return m_serialNo;
}

QString UnitUnderTest::GetIdentString() const
{
    return m_ident;
}

long UnitUnderTest::GetPanelIndex() const
{
    return m_panelIndex;
}

QSharedPointer<ProductType> UnitUnderTest::GetProductType() const
{
    return m_productType;
}

void UnitUnderTest::SetSerialNo(const QString& serialNo)
{
    m_serialNo = serialNo;
}

void UnitUnderTest::SetIdentString(const QString& ident)
{
    m_ident = ident;
}

void UnitUnderTest::SetPanelIndex(long index)
{
    m_panelIndex = index;
}

void UnitUnderTest::SetProductType(QSharedPointer<ProductType> productType)
{
    m_productType = std::move(productType);
}

bool UnitUnderTest::IsValid() const
{
    return ManagedObject::IsValid() || !m_serialNo.isEmpty() || !m_ident.isEmpty();
}

} // namespace ZYN
