#include "archive/figures/Holm.h"

#include <algorithm>
#include <numeric>

namespace ZYN::Figures {

std::vector<double> HolmCorrected(std::span<const double> p)
{
    std::vector<std::size_t> order(p.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return p[a] < p[b]; });
    std::vector<double> corrected(p.size());
    double largest = 0;
    for (std::size_t rank = 0; rank < order.size(); ++rank) {
        largest = std::max(largest, std::min(1.0, double(p.size() - rank) * p[order[rank]]));
        corrected[order[rank]] = largest;
    }
    return corrected;
}

} // namespace ZYN::Figures
