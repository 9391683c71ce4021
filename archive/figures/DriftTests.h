#pragma once

#include "archive/figures/Probability.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace ZYN::Figures {

/// A drift of numbers in order of time that is worth an alarm.
struct FoundDrift {
    enum class Kind { Trend, Step };
    Kind kind = Kind::Trend;
    double p = 1;      ///< corrected for all tests of the question
    double sigmas = 0; ///< its size, signed
    std::size_t since =
        0; ///< number where it began: the first for a trend, the first on the new level for a step
};

/// What the two tests of one measurement said, until the tests of all others are known.
///
/// The size of a drift is that of a trend from the first to the last tenth, of a step from the middle before
/// it to the middle behind it, in sigmas of the moving range: the usual sigma holds the drift itself, which
/// would hide it (a step of ten in the middle would never be more than two). Medians, so that a few broken
/// units, which measure nothing like the others, do not hide it either.
class DriftTests {
public:
    DriftTests() = default;
    explicit DriftTests(std::span<const double> numbers);

    /// In the order of `Kind`.
    std::array<double, 2> GetP() const { return {m_candidates[0].p.Get(), m_candidates[1].p.Get()}; }

    /// The drift, where a test is significant at 1 % after the correction and its size is at least half a
    /// sigma; of two the one that is less likely by chance. \param corrected what `HolmCorrected` made of
    /// `GetP`
    std::optional<FoundDrift> Find(std::span<const double, 2> corrected) const;

private:
    struct Candidate {
        Probability p;
        double sigmas = 0;
        std::size_t since = 0;
    };
    std::array<Candidate, 2> m_candidates;
};

/// The drifts of all measurements of a question; tests that are not shown count all the same.
std::vector<std::optional<FoundDrift>> FindDrifts(std::span<const DriftTests> measurements);

} // namespace ZYN::Figures
