#pragma once

#include <ZYNCommon/ManagedObject.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>

namespace ZYN {

class ZYNUser;

/// A workspace: its users, its plug-ins and the applications that may be used in it.
class ZYNCOMMON_EXPORT WorkSpace : public ManagedObject {
    Q_OBJECT
public:
    /// Result of a log-in.
    enum LOGIN_ERROR : int { LOGIN_OK = 0, LOGIN_UNKNOWN_USER = 1, LOGIN_WRONG_PASSWORD = 2 };

    WorkSpace(long id, const QString& name);
    ~WorkSpace() override;

    /// Who is logged in; null when nobody is.
    virtual QSharedPointer<ZYNUser> GetCurrentUser() const;
    /// Empty when nobody is logged in.
    virtual QString GetCurrentUserName() const;
    virtual QList<QSharedPointer<ZYNUser>> GetUserList() const;
    /// Replaces the users and logs the current one out. Null entries are dropped.
    virtual void SetUserList(const QList<QSharedPointer<ZYNUser>>& users);
    /// Names by place in the user list, from 0: the number that `Login` takes.
    virtual QMap<int, QString> GetUserNames() const;
    /// Adds a user without a password.
    virtual QSharedPointer<ZYNUser> CreateNewUser(const QString& name);

    virtual QStringList GetPluginList() const;
    /// Replaces the plug-ins.
    virtual void SetPluginList(const QStringList& plugins);
    /// Name of the plug-in at a place from 0; empty outside the list.
    virtual QString GetPlugin(int index) const;
    /// Adds a plug-in unless one of that name exists.
    /// \return its place in the list
    virtual int CreateNewPlugin(const QString& name);

    virtual QStringList GetAppUsageList() const;
    /// Replaces the list of allowed applications; an empty list allows every application.
    virtual void SetAppUsageList(const QStringList& applications);
    virtual bool IsAppUsageAllowed(const QString& application) const;

    /// Logs a user in.
    /// \param userIndex place in the user list, from 0
    virtual LOGIN_ERROR Login(int userIndex, const QString& password);
    /// Logs the current user out.
    /// \return whether somebody was logged in
    virtual bool Reset();

private:
    QList<QSharedPointer<ZYNUser>> m_users;
    QSharedPointer<ZYNUser> m_currentUser;
    QStringList m_plugins;
    QStringList m_applications;
};

} // namespace ZYN
