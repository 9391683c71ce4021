#include "CExportDirectorReport.h"

#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/TestComponent.h>

namespace ZYN {

bool CExportDirectorReport::AcceptComponent(TestComponent* component)
{
    if (!component)
        return false;
    if (ignoreReportFlag)
        return true;
    const CtrlLogInReport* const control = component->GetLogInReportCtrl();
    return !control || control->GetLogInReport();
}

} // namespace ZYN
