#pragma once

#include <span>
#include <vector>

namespace ZYN::Figures {

/// Probabilities of several tests, corrected so that the chance of any false alarm among all of them is kept
/// (Holm, "A simple sequentially rejective multiple test procedure", Scandinavian Journal of Statistics 6,
/// 1979).
std::vector<double> HolmCorrected(std::span<const double> p);

} // namespace ZYN::Figures
