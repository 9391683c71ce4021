#include <ZYNCommon/FixtureBase.h>

namespace ZYN {

FixtureBase::FixtureBase(long objectId, const QString& name)
    : ManagedObject(objectId, name)
{
}

FixtureBase::~FixtureBase() = default;

QString FixtureBase::GetIdent() const
{
    return m_ident;
}

QString FixtureBase::GetDescription() const
{
    return m_description;
}

void FixtureBase::SetIdent(const QString& ident)
{
    m_ident = ident;
}

void FixtureBase::SetDescription(const QString& description)
{
    m_description = description;
}

} // namespace ZYN
