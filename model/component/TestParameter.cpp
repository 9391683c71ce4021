#include <ZYNCommon/TestParameter.h>

#include <ZYNCommon/TestGroup.h>

namespace ZYN {

TestParameter::TestParameter(long parameterId, const QString& name, EN_ZYN_ADDRESS address, TestGroup* parent,
                             unsigned int line, long position)
    : TestComponent(parameterId, name, address, line)
    , m_parent(parent)
    , m_position(position)
{
}

TestParameter::~TestParameter() = default;

long TestParameter::GetPosition() const
{
    return m_position;
}

TestProgram* TestParameter::GetTestProgram() const
{
    return m_parent ? m_parent->GetTestProgram() : nullptr;
}

TestGroup* TestParameter::GetTestGroup() const
{
    return m_parent;
}

} // namespace ZYN
