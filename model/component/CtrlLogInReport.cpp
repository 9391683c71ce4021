#include <ZYNCommon/CtrlLogInReport.h>

namespace ZYN {

CtrlLogInReport::CtrlLogInReport(bool logInReport)
    : m_logInReport(logInReport)
{
}

bool CtrlLogInReport::GetLogInReport() const
{
    return m_logInReport;
}

void CtrlLogInReport::LogInReportOn()
{
    m_logInReport = true;
}

void CtrlLogInReport::LogInReportOff()
{
    m_logInReport = false;
}

} // namespace ZYN
