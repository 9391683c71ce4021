#pragma once

#include <ZYNCommon/LimitOperator.h>

#include <cmath>
#include <concepts>

namespace ZYN {

/// Whether `left op right` holds: nothing does for not-a-number, "!=" included. An operator that says
/// nothing holds for everything else.
template <typename T>
bool Holds(const T& left, const T& right, LimitOperator::Code op)
{
    if constexpr (std::floating_point<T>) {
        if (std::isunordered(left, right))
            return false;
    }
    switch (op) {
    case LimitOperator::Equal:
        return left == right;
    case LimitOperator::NotEqual:
        return left != right;
    case LimitOperator::Less:
        return left < right;
    case LimitOperator::LessEqual:
        return left <= right;
    case LimitOperator::Greater:
        return left > right;
    case LimitOperator::GreaterEqual:
        return left >= right;
    case LimitOperator::None:
        break;
    }
    return true;
}

} // namespace ZYN
