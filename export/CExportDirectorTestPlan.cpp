#include "CExportDirectorTestPlan.h"

namespace ZYN {

bool CExportDirectorTestPlan::AcceptComponent(TestComponent*)
{
    return true;
}

} // namespace ZYN
