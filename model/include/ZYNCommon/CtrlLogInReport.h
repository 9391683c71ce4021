#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

namespace ZYN {

/// Whether a component appears in reports.
class ZYNCOMMON_EXPORT CtrlLogInReport {
public:
    explicit CtrlLogInReport(bool logInReport = true);
    bool GetLogInReport() const;
    void LogInReportOn();
    void LogInReportOff();

private:
    bool m_logInReport;
};

} // namespace ZYN
