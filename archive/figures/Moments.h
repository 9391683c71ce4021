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
        : m(state)
    {
    }

    void Add(double number)
    {
        if (m.count++ == 0)
            m.first = number;
        const double shifted = number - m.first;
        const double distance = shifted - m.mean;
        m.mean += distance / double(m.count);
        m.squares += distance * (shifted - m.mean);
        m.min = number < m.min ? number : m.min;
        m.max = number > m.max ? number : m.max;
    }

    /// As if the other's numbers had been added (Chan, Golub and LeVeque, "Updating formulae and a pairwise
    /// algorithm for computing sample variances", Stanford STAN-CS-79-773, 1979).
    void Merge(const Moments& other)
    {
        if (other.m.count == 0)
            return;
        if (m.count == 0) {
            m = other.m;
            return;
        }
        const double distance = (other.m.first - m.first) + (other.m.mean - m.mean);
        const double share = double(other.m.count) / double(m.count + other.m.count);
        m.squares += other.m.squares + distance * distance * double(m.count) * share;
        m.mean += distance * share;
        m.count += other.m.count;
        m.min = other.m.min < m.min ? other.m.min : m.min;
        m.max = other.m.max > m.max ? other.m.max : m.max;
    }

    const State& GetState() const { return m; }
    std::int64_t GetCount() const { return m.count; }
    std::optional<double> GetMean() const { return Some(m.first + m.mean, 1); }
    /// Of a sample: divided by count - 1; none for fewer than two numbers.
    std::optional<double> GetSigma() const
    {
        return Some(m.count < 2 ? 0 : std::sqrt(m.squares / double(m.count - 1)), 2);
    }
    std::optional<double> GetMin() const { return Some(m.min, 1); }
    std::optional<double> GetMax() const { return Some(m.max, 1); }

private:
    std::optional<double> Some(double figure, std::int64_t needed) const
    {
        return m.count < needed || !std::isfinite(figure) ? std::nullopt : std::optional(figure);
    }

    State m;
};

} // namespace ZYN::Figures
