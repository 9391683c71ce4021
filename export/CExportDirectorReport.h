#pragma once

#include "CExportDirectorBase.h"

namespace ZYN {

/// The walks of a report: components that are not to be reported are left out.
class CExportDirectorReport : public CExportDirectorBase {
public:
    bool AcceptComponent(TestComponent* component) override;

    /// Report every component.
    bool ignoreReportFlag = false;
};

} // namespace ZYN
