#include "archive/figures/Trend.h"

#include <algorithm>
#include <cmath>

namespace ZYN::Figures {

namespace {

using Item = std::uint32_t;

// Sorts a few numbers in place. \return pairs that were in the wrong order
std::uint64_t InsertionSort(Item* begin, const Item* end)
{
    std::uint64_t falling = 0;
    for (Item* next = begin; next != end; ++next) {
        const Item item = *next;
        Item* place = next;
        for (; place != begin && place[-1] > item; --place)
            *place = place[-1];
        *place = item;
        falling += std::uint64_t(next - place);
    }
    return falling;
}

// Merges two sorted neighbours. \return pairs of which the left one is larger
std::uint64_t Merge(const Item* left, const Item* middle, const Item* end, Item* out)
{
    std::uint64_t falling = 0;
    const Item* right = middle;
    while (left != middle && right != end) {
        // Without branches: which of the two is smaller is a matter of chance.
        const bool takesRight = *right < *left;
        *out++ = takesRight ? *right : *left;
        falling += takesRight ? std::uint64_t(middle - left) : 0;
        right += takesRight;
        left += !takesRight;
    }
    out = std::copy(left, middle, out);
    std::copy(right, end, out);
    return falling;
}

std::uint64_t FallingPairs(std::vector<Item> items)
{
    constexpr std::size_t block = 8;
    const std::size_t n = items.size();
    std::uint64_t falling = 0;
    for (std::size_t begin = 0; begin < n; begin += block)
        falling += InsertionSort(items.data() + begin, items.data() + std::min(n, begin + block));
    std::vector<Item> merged(n);
    for (std::size_t width = block; width < n; width *= 2) {
        for (std::size_t begin = 0; begin < n; begin += 2 * width) {
            const Item* const from = items.data();
            falling += Merge(from + begin, from + std::min(n, begin + width),
                             from + std::min(n, begin + 2 * width), merged.data() + begin);
        }
        items.swap(merged);
    }
    return falling;
}

} // namespace

Trend TrendOf(const Ranks& ranks)
{
    const double n = double(ranks.dense.size());
    const double pairs = n * (n - 1) / 2 - ranks.tiedPairs;
    Trend trend;
    trend.score = pairs - 2 * double(FallingPairs(ranks.dense));
    const double variance = (n * (n - 1) * (2 * n + 5) - ranks.tieTerm) / 18;
    if (variance > 0)
        trend.p = BeyondNormal(std::max(0.0, std::abs(trend.score) - 1) / std::sqrt(variance));
    return trend;
}

} // namespace ZYN::Figures
