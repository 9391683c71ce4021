#include <ZYNCommon/ManagedObject.h>

namespace ZYN {

ManagedObject::ManagedObject(long objectId, const QString& name)
    : id(objectId)
    , m_name(name)
{
}

ManagedObject::~ManagedObject() = default;

QString ManagedObject::GetName() const
{
    return m_name;
}

QString ManagedObject::GetParameter(const QString& key) const
{
    return m_parameters.value(key);
}

QMap<QString, QString> ManagedObject::GetParameters() const
{
    return m_parameters;
}

bool ManagedObject::HasParameter(const QString& key) const
{
    return m_parameters.contains(key);
}

void ManagedObject::SetParameter(const QString& key, const QString& value)
{
    m_parameters.insert(key, value);
}

void ManagedObject::SetParameters(const QMap<QString, QString>& parameters)
{
    m_parameters = parameters;
}

bool ManagedObject::CanSaveProperty(const QString& key) const
{
    return !key.isEmpty();
}

bool ManagedObject::IsValid() const
{
    return id != 0 || !m_name.isEmpty();
}

void ManagedObject::SetName(const QString& name)
{
    m_name = name;
}

} // namespace ZYN
