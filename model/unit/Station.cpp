#include <ZYNCommon/Station.h>

namespace ZYN {

Station::Station(long objectId, const QString& name)
    : ManagedObject(objectId, name)
{
}

Station::~Station() = default;

QString Station::GetDescription() const
{
    return m_description;
}

void Station::SetDescription(const QString& description)
{
    m_description = description;
}

} // namespace ZYN
