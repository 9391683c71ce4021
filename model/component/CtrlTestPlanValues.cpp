#include <ZYNCommon/CtrlTestPlanValues.h>

namespace ZYN {

CtrlTestPlanValues::CtrlTestPlanValues(bool logInReport, bool enabled)
    : m_logInReport(logInReport)
    , m_enabled(enabled)
{
}

bool CtrlTestPlanValues::GetLogInReport() const
{
    return m_logInReport;
}

bool CtrlTestPlanValues::IsEnabled() const
{
    return m_enabled;
}

void CtrlTestPlanValues::SetLogInReport(bool logInReport)
{
    m_logInReport = logInReport;
}

void CtrlTestPlanValues::SetEnabled(bool enabled)
{
    m_enabled = enabled;
}

} // namespace ZYN
