#include "archive/figures/NelsonRules.h"

#include "archive/figures/MovingRange.h"

#include <cmath>

namespace ZYN::Figures {

namespace {

// A second pass takes away what the first one rounded, so that a number on the mean is on no side of it.
double MeanOf(std::span<const double> numbers)
{
    const double n = double(numbers.size());
    double mean = 0;
    for (int pass = 0; pass < 2; ++pass) {
        double sum = 0;
        for (const double number : numbers)
            sum += number - mean;
        mean += sum / n;
    }
    return mean;
}

int SignOf(double number)
{
    return int(number > 0) - int(number < 0);
}

// Rows of one sign, other than 0, that are long enough: where each begins.
template <typename SignAt>
void AppendRows(int rule, std::size_t count, std::size_t length, const SignAt& signAt,
                std::vector<NelsonHit>* hits)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 && signAt(i) != signAt(i - 1))
            begin = i;
        if (i + 1 - begin == length && signAt(i) != 0)
            hits->push_back({rule, begin});
    }
}

} // namespace

std::vector<NelsonHit> NelsonHits(std::span<const double> numbers)
{
    std::vector<NelsonHit> hits;
    if (numbers.size() < 2)
        return hits;
    const double mean = MeanOf(numbers);
    const double sigma = MovingRangeSigma(numbers);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (sigma > 0 && std::abs(numbers[i] - mean) > 3 * sigma)
            hits.push_back({1, i});
    const auto side = [&](std::size_t i) { return SignOf(numbers[i] - mean); };
    AppendRows(2, numbers.size(), 9, side, &hits);
    const auto direction = [&](std::size_t i) { return SignOf(numbers[i + 1] - numbers[i]); };
    AppendRows(3, numbers.size() - 1, 5, direction, &hits); // six points are five steps
    return hits;
}

} // namespace ZYN::Figures
