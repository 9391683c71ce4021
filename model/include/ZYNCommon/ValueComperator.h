#pragma once

#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/ZYNCommonGlobal.h>

namespace ZYN {

/// Compares a value with a limit.
class ZYNCOMMON_EXPORT ValueComperator {
public:
    /// Whether `value op limit` holds. Nothing holds for not-a-number on either side, "!=" included;
    /// an operator that says nothing holds always but for not-a-number.
    static bool Verify(double value, double limit, LimitOperator::Code op);
};

} // namespace ZYN
