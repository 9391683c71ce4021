#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

namespace ZYN {

/// Whether a component is executed.
class ZYNCOMMON_EXPORT CtrlEnable {
public:
    explicit CtrlEnable(bool enabled = true);
    bool IsEnabled() const;
    void EnableOn();
    void EnableOff();

private:
    bool m_enabled;
};

} // namespace ZYN
