#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

namespace ZYN {

/// The two switches of a component as the test plan wants them.
class ZYNCOMMON_EXPORT CtrlTestPlanValues {
public:
    explicit CtrlTestPlanValues(bool logInReport = true, bool enabled = true);
    bool GetLogInReport() const;
    bool IsEnabled() const;
    void SetLogInReport(bool logInReport);
    void SetEnabled(bool enabled);

private:
    bool m_logInReport;
    bool m_enabled;
};

} // namespace ZYN
