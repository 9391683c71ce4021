#pragma once

#include "CExportDirectorBase.h"

namespace ZYN {

/// The walk of a test plan: every component counts.
class CExportDirectorTestPlan : public CExportDirectorBase {
public:
    bool AcceptComponent(TestComponent* component) override;
};

} // namespace ZYN
