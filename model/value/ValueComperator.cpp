#include <ZYNCommon/ValueComperator.h>

#include "Comparison.h"

namespace ZYN {

bool ValueComperator::Verify(double value, double limit, LimitOperator::Code op)
{
    return Holds(value, limit, op);
}

} // namespace ZYN
