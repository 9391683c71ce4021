#include "archive/figures/DriftTests.h"

#include "archive/figures/Holm.h"
#include "archive/figures/MovingRange.h"
#include "archive/figures/Step.h"
#include "archive/figures/Trend.h"

#include <algorithm>
#include <cmath>

namespace ZYN::Figures {

namespace {

constexpr double significant = 0.01;
constexpr double worthTelling = 0.5; // sigmas

double MiddleOf(std::span<const double> numbers)
{
    return MedianOf({numbers.begin(), numbers.end()});
}

} // namespace

DriftTests::DriftTests(std::span<const double> numbers)
{
    const double sigma = RobustSigma(numbers);
    if (!(sigma > 0))
        return;
    const Ranks ranks = RanksOf(numbers);
    const std::size_t tenth = std::max<std::size_t>(1, numbers.size() / 10);
    const double rise = MiddleOf(numbers.last(tenth)) - MiddleOf(numbers.first(tenth));
    m_candidates[std::size_t(FoundDrift::Kind::Trend)] = {TrendOf(ranks).p, rise / sigma, 0};
    const Step step = StepOf(ranks);
    const double height =
        step.behind == 0 ? 0 : MiddleOf(numbers.subspan(step.behind)) - MiddleOf(numbers.first(step.behind));
    m_candidates[std::size_t(FoundDrift::Kind::Step)] = {step.p, height / sigma, step.behind};
}

std::optional<FoundDrift> DriftTests::Find(std::span<const double, 2> corrected) const
{
    std::optional<FoundDrift> found;
    double least = 0;
    for (const FoundDrift::Kind kind : {FoundDrift::Kind::Trend, FoundDrift::Kind::Step}) {
        const Candidate& candidate = m_candidates[std::size_t(kind)];
        const double p = corrected[std::size_t(kind)];
        if (p >= significant || std::abs(candidate.sigmas) < worthTelling)
            continue;
        if (!found || candidate.p.log < least) {
            found = FoundDrift{kind, p, candidate.sigmas, candidate.since};
            least = candidate.p.log;
        }
    }
    return found;
}

std::vector<std::optional<FoundDrift>> FindDrifts(std::span<const DriftTests> measurements)
{
    std::vector<double> p;
    for (const DriftTests& tests : measurements)
        for (const double one : tests.GetP())
            p.push_back(one);
    const std::vector<double> corrected = HolmCorrected(p);
    std::vector<std::optional<FoundDrift>> found;
    for (std::size_t i = 0; i < measurements.size(); ++i)
        found.push_back(measurements[i].Find(std::span<const double, 2>(&corrected[2 * i], 2)));
    return found;
}

} // namespace ZYN::Figures
