#include "archive/questions/MeasuredSeries.h"

#include <algorithm>
#include <numeric>

namespace ZYN {

namespace {

template <typename Item>
void Arrange(const std::vector<std::size_t>& order, std::vector<Item>* items)
{
    std::vector<Item> arranged;
    arranged.reserve(items->size());
    for (const std::size_t from : order)
        arranged.push_back((*items)[from]);
    *items = std::move(arranged);
}

} // namespace

void MeasuredSeries::Sort(const std::vector<std::uint32_t>& ranks)
{
    for (std::uint32_t& run : runs)
        run = ranks[run];
    if (std::is_sorted(runs.begin(), runs.end()))
        return;
    std::vector<std::size_t> order(runs.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return runs[a] < runs[b]; });
    Arrange(order, &values);
    Arrange(order, &codes);
    Arrange(order, &runs);
}

} // namespace ZYN
