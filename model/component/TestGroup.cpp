#include <ZYNCommon/TestGroup.h>

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/SharedAt.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

namespace ZYN {

TestGroup::TestGroup(long groupId, const QString& name, TestProgram* parent, unsigned int line, long position,
                     EN_ZYN_GROUP kind, void* userData)
    : TestComponent(groupId, name, ZYN_ADDRESS_GROUP, line)
    , m_parent(parent)
    , m_position(position)
    , m_kind(kind)
    , m_userData(userData)
{
    SetEnableCtrl(new CtrlEnable);
    SetLogInReportCtrl(new CtrlLogInReport);
}

TestGroup::~TestGroup() = default;

int TestGroup::GetParameterCount() const
{
    return static_cast<int>(m_parameters.size());
}

const QSharedPointer<TestParameter>& TestGroup::GetParameterForIndex(int index) const
{
    return SharedAt(m_parameters, index);
}

int TestGroup::AddParameter(QSharedPointer<TestParameter> parameter)
{
    if (!parameter)
        return -1;
    parameter->m_parent = this;
    m_parameters.append(std::move(parameter));
    return GetParameterCount() - 1;
}

int TestGroup::GetStepCount() const
{
    return static_cast<int>(m_steps.size());
}

const QSharedPointer<TestStep>& TestGroup::GetStepForIndex(int index) const
{
    return SharedAt(m_steps, index);
}

int TestGroup::AddStep(QSharedPointer<TestStep> step)
{
    if (!step)
        return -1;
    step->m_parent = this;
    m_steps.append(std::move(step));
    return GetStepCount() - 1;
}

bool TestGroup::IsUserGroup() const
{
    return m_kind == ZYN_GROUP_USER;
}

EN_ZYN_GROUP TestGroup::GetGroupKind() const
{
    return m_kind;
}

long TestGroup::GetPosition() const
{
    return m_position;
}

void* TestGroup::GetUserData() const
{
    return m_userData;
}

QList<TestComponent*> TestGroup::GetChildren() const
{
    QList<TestComponent*> children;
    children.reserve(m_parameters.size() + m_steps.size());
    for (const auto& parameter : m_parameters)
        children.append(parameter.data());
    for (const auto& step : m_steps)
        children.append(step.data());
    return children;
}

TestProgram* TestGroup::GetTestProgram() const
{
    return m_parent;
}

} // namespace ZYN
