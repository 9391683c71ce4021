#include <ZYNCommon/ZYNSession.h>

#include <ZYNCommon/WorkSpace.h>

namespace ZYN {

ZYNSession::ZYNSession() = default;

ZYNSession::~ZYNSession() = default;

QString ZYNSession::GetMachineName() const
{
    return m_machineName;
}

QString ZYNSession::GetWorkspaceName() const
{
    return m_workSpace ? m_workSpace->GetName() : QString();
}

QString ZYNSession::GetCurrentUserName() const
{
    return m_workSpace ? m_workSpace->GetCurrentUserName() : QString();
}

QSharedPointer<WorkSpace> ZYNSession::GetWorkSpace() const
{
    return m_workSpace;
}

void ZYNSession::SetMachineName(const QString& machineName)
{
    m_machineName = machineName;
}

void ZYNSession::SetWorkSpace(QSharedPointer<WorkSpace> workSpace)
{
    m_workSpace = std::move(workSpace);
}

} // namespace ZYN
