#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace ZYN::Figures {

/// Count, mean, spread and extremes of numbers, in one pass (Welford, "Note on a method for calculating
/// corrected sums of squares and products", Technometrics 4, 1962), over their distances from the first one:
/// 1e6 ± 1e-4 keeps its sigma.
class Moments {
public:
    void Add(double number)
    {
        if (m_count++ == 0)
            m_first = number;
        const double shifted = number - m_first;
        const double distance = shifted - m_mean;
        m_mean += distance / double(m_count);
        m_squares += distance * (shifted - m_mean);
        m_min = number < m_min ? number : m_min;
        m_max = number > m_max ? number : m_max;
    }

    std::int64_t GetCount() const { return m_count; }
    std::optional<double> GetMean() const { return Some(m_first + m_mean, 1); }
    /// Of a sample: divided by count - 1; none for fewer than two numbers.
    std::optional<double> GetSigma() const
    {
        return Some(m_count < 2 ? 0 : std::sqrt(m_squares / double(m_count - 1)), 2);
    }
    std::optional<double> GetMin() const { return Some(m_min, 1); }
    std::optional<double> GetMax() const { return Some(m_max, 1); }

private:
    std::optional<double> Some(double figure, std::int64_t needed) const
    {
        return m_count < needed || !std::isfinite(figure) ? std::nullopt : std::optional(figure);
    }

    std::int64_t m_count = 0;
    double m_first = 0;
    double m_mean = 0;    // less the first number
    double m_squares = 0; // sum of squared distances from the mean
    double m_min = std::numeric_limits<double>::infinity();
    double m_max = -std::numeric_limits<double>::infinity();
};

} // namespace ZYN::Figures
