#include <ZYNCommon/ZYNUser.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QRandomGenerator>

namespace ZYN {

namespace {

QByteArray Hash(const QByteArray& salt, const QString& password)
{
    return QCryptographicHash::hash(salt + password.toUtf8(), QCryptographicHash::Sha256);
}

} // namespace

ZYNUser::ZYNUser(const QString& name)
    : ManagedObject(0, name)
{
}

ZYNUser::~ZYNUser() = default;

void ZYNUser::SetPassword(const QString& password)
{
    const quint64 random = QRandomGenerator::global()->generate64();
    m_salt = QByteArray::number(random, 16);
    m_passwordHash = Hash(m_salt, password);
}

bool ZYNUser::CheckPassword(const QString& password) const
{
    if (m_passwordHash.isEmpty())
        return password.isEmpty();
    return Hash(m_salt, password) == m_passwordHash;
}

} // namespace ZYN
