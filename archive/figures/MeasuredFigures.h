#pragma once

#include "archive/figures/Moments.h"

namespace ZYN::Figures {

/// What is counted of one component.
struct MeasuredFigures {
    Moments all, passed;         ///< finite numbers; those that passed
    std::int64_t results = 0;    ///< with a number or not
    std::int64_t failed = 0;     ///< with a negative code, with a number or not
    std::int64_t notNumbers = 0; ///< not-a-number and infinities

    /// A result. \param number not-a-number where there is none
    void Add(double number, int code)
    {
        ++results;
        failed += code < 0;
        if (!std::isfinite(number))
            return;
        all.Add(number);
        if (code > 0)
            passed.Add(number);
    }

    /// A result that stands as a text. \param number none where the text is no finite number
    void AddText(const std::optional<double>& number, int code)
    {
        notNumbers += !number;
        Add(number.value_or(std::numeric_limits<double>::quiet_NaN()), code);
    }

    void Merge(const MeasuredFigures& other)
    {
        all.Merge(other.all);
        passed.Merge(other.passed);
        results += other.results;
        failed += other.failed;
        notNumbers += other.notNumbers;
    }
};

} // namespace ZYN::Figures
