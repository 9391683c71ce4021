#include <ZYNCommon/CtrlEnable.h>

namespace ZYN {

CtrlEnable::CtrlEnable(bool enabled)
    : m_enabled(enabled)
{
}

bool CtrlEnable::IsEnabled() const
{
    return m_enabled;
}

void CtrlEnable::EnableOn()
{
    m_enabled = true;
}

void CtrlEnable::EnableOff()
{
    m_enabled = false;
}

} // namespace ZYN
