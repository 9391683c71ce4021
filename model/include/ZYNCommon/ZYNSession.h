#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace ZYN {

class WorkSpace;

/// Who tests on which machine, in which workspace.
class ZYNCOMMON_EXPORT ZYNSession : public QObject {
    Q_OBJECT
public:
    ZYNSession();
    ~ZYNSession() override;

    QString GetMachineName() const;
    /// Name of the workspace; empty without one.
    QString GetWorkspaceName() const;
    /// Name of the workspace's current user; empty without one.
    QString GetCurrentUserName() const;
    QSharedPointer<WorkSpace> GetWorkSpace() const;

    void SetMachineName(const QString& machineName);
    void SetWorkSpace(QSharedPointer<WorkSpace> workSpace);

private:
    QString m_machineName;
    QSharedPointer<WorkSpace> m_workSpace;
};

} // namespace ZYN
