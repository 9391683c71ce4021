#include <ZYNCommon/WorkSpace.h>

#include <ZYNCommon/ZYNUser.h>

namespace ZYN {

WorkSpace::WorkSpace(long workSpaceId, const QString& name)
    : ManagedObject(workSpaceId, name)
{
}

WorkSpace::~WorkSpace() = default;

QSharedPointer<ZYNUser> WorkSpace::GetCurrentUser() const
{
    return m_currentUser;
}

QString WorkSpace::GetCurrentUserName() const
{
    return m_currentUser ? m_currentUser->GetName() : QString();
}

QList<QSharedPointer<ZYNUser>> WorkSpace::GetUserList() const
{
    return m_users;
}

void WorkSpace::SetUserList(const QList<QSharedPointer<ZYNUser>>& users)
{
    m_currentUser.reset();
    m_users = users;
    m_users.removeAll(QSharedPointer<ZYNUser>());
}

QMap<int, QString> WorkSpace::GetUserNames() const
{
    QMap<int, QString> names;
    for (int index = 0; index < m_users.size(); ++index)
        names.insert(index, m_users.at(index)->GetName());
    return names;
}

QSharedPointer<ZYNUser> WorkSpace::CreateNewUser(const QString& name)
{
    m_users.append(QSharedPointer<ZYNUser>::create(name));
    return m_users.last();
}

QStringList WorkSpace::GetPluginList() const
{
    return m_plugins;
}

void WorkSpace::SetPluginList(const QStringList& plugins)
{
    m_plugins = plugins;
}

QString WorkSpace::GetPlugin(int index) const
{
    return m_plugins.value(index);
}

int WorkSpace::CreateNewPlugin(const QString& name)
{
    if (!m_plugins.contains(name))
        m_plugins.append(name);
    return static_cast<int>(m_plugins.indexOf(name));
}

QStringList WorkSpace::GetAppUsageList() const
{
    return m_applications;
}

void WorkSpace::SetAppUsageList(const QStringList& applications)
{
    m_applications = applications;
}

bool WorkSpace::IsAppUsageAllowed(const QString& application) const
{
    return m_applications.isEmpty() || m_applications.contains(application);
}

WorkSpace::LOGIN_ERROR WorkSpace::Login(int userIndex, const QString& password)
{
    const QSharedPointer<ZYNUser> user = m_users.value(userIndex);
    if (!user)
        return LOGIN_UNKNOWN_USER;
    if (!user->CheckPassword(password))
        return LOGIN_WRONG_PASSWORD;
    m_currentUser = user;
    return LOGIN_OK;
}

bool WorkSpace::Reset()
{
    const bool wasLoggedIn = !m_currentUser.isNull();
    m_currentUser.reset();
    return wasLoggedIn;
}

} // namespace ZYN
