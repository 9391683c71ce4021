#include <ZYNCommon/Fixture.h>

namespace ZYN {

Fixture::Fixture(long objectId, const QString& name)
    : FixtureBase(objectId, name)
{
}

Fixture::~Fixture() = default;

QString Fixture::GetSerialNo() const
{
    return m_serialNo;
}

QString Fixture::GetFixtureTypeName() const
{
    return m_typeName;
}

void Fixture::SetSerialNo(const QString& serialNo)
{
    m_serialNo = serialNo;
}

void Fixture::SetFixtureTypeName(const QString& name)
{
    m_typeName = name;
}

} // namespace ZYN
