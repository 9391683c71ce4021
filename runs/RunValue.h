#pragma once

#include <cstdint>
#include <string>

namespace ZYN {

/// A value as a run has it: a number, or a text for what is no finite number or does not fit one.
struct RunValue {
    double number = 0; ///< NaN where there is none
    std::string text;

    void SetNone();
    void SetReal(double real);
    void SetInteger(std::int64_t integer);
    /// \param digits of a whole number, with its sign
    void SetWhole(std::string digits);
    /// The number, or the one nearest to the text; NaN where there is none.
    double Nearest() const;
};

} // namespace ZYN
