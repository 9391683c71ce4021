#include "archive/figures/Ranks.h"

#include <algorithm>
#include <utility>

namespace ZYN::Figures {

Ranks RanksOf(std::span<const double> numbers)
{
    std::vector<std::pair<double, std::uint32_t>> sorted(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i)
        sorted[i] = {numbers[i], std::uint32_t(i)};
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });

    Ranks ranks;
    ranks.doubled.resize(numbers.size());
    ranks.dense.resize(numbers.size());
    std::uint32_t different = 0;
    for (std::size_t begin = 0, end = 0; begin < sorted.size(); begin = end) {
        while (end < sorted.size() && sorted[end].first == sorted[begin].first)
            ++end;
        const double t = double(end - begin);
        ranks.tiedPairs += t * (t - 1) / 2;
        ranks.tieTerm += t * (t - 1) * (2 * t + 5);
        for (std::size_t i = begin; i < end; ++i) {
            ranks.doubled[sorted[i].second] = std::int64_t(begin + end + 1);
            ranks.dense[sorted[i].second] = different;
        }
        ++different;
    }
    return ranks;
}

} // namespace ZYN::Figures
