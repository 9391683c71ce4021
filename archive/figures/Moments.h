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
    /// All that there is to know, to be kept and taken up again.
    struct State {
        std::int64_t count = 0;
        double first = 0;   ///< the first number
        double mean = 0;    ///< less the first number
        double squares = 0; ///< sum of squared distances from the mean
        double min = std::numeric_limits<double>::infinity();
        double max = -std::numeric_limits<double>::infinity();
    };

    Moments() = default;
    explicit Moments(const State& state)
        : m_state(state)
    {
    }

    void Add(double number)
    {
        if (m_state.count++ == 0)
            m_state.first = number;
        const double shifted = number - m_state.first;
        const double distance = shifted - m_state.mean;
        m_state.mean += distance / double(m_state.count);
        m_state.squares += distance * (shifted - m_state.mean);
        m_state.min = number < m_state.min ? number : m_state.min;
        m_state.max = number > m_state.max ? number : m_state.max;
    }

    /// As if the other's numbers had been added (Chan, Golub and LeVeque, "Updating formulae and a pairwise
    /// algorithm for computing sample variances", Stanford STAN-CS-79-773, 1979).
    void Merge(const Moments& other)
    {
        if (other.m_state.count == 0)
            return;
        if (m_state.count == 0) {
            m_state = other.m_state;
            return;
        }
        const double distance = (other.m_state.first - m_state.first) + (other.m_state.mean - m_state.mean);
        const double share = double(other.m_state.count) / double(m_state.count + other.m_state.count);
        m_state.squares += other.m_state.squares + distance * distance * double(m_state.count) * share;
        m_state.mean += distance * share;
        m_state.count += other.m_state.count;
        m_state.min = other.m_state.min < m_state.min ? other.m_state.min : m_state.min;
        m_state.max = other.m_state.max > m_state.max ? other.m_state.max : m_state.max;
    }

    const State& GetState() const { return m_state; }
    std::int64_t GetCount() const { return m_state.count; }
    std::optional<double> GetMean() const { return Some(m_state.first + m_state.mean, 1); }
    /// Of a sample: divided by count - 1; none for fewer than two numbers.
    std::optional<double> GetSigma() const
    {
        return Some(m_state.count < 2 ? 0 : std::sqrt(m_state.squares / double(m_state.count - 1)), 2);
    }
    std::optional<double> GetMin() const { return Some(m_state.min, 1); }
    std::optional<double> GetMax() const { return Some(m_state.max, 1); }

private:
    std::optional<double> Some(double figure, std::int64_t needed) const
    {
        return m_state.count < needed || !std::isfinite(figure) ? std::nullopt : std::optional(figure);
    }

    State m_state;
};

} // namespace ZYN::Figures
