#pragma once

#include "runs/Run.h"

#include <map>
#include <string>
#include <utility>

namespace ZYN::Tool {

/// Wafers as characters, a die each: the last digit of its hard bin, or a letter for bins from 10 on; "."
/// where there is none.
class WaferMap {
public:
    /// A run that has a place; that of a die that is tested again replaces the one before.
    void Add(const ZYN::Run& run);
    void Print() const;

private:
    /// A wafer has fewer dies; a small compressed file could hold any number.
    static constexpr std::size_t MostDies = 1'000'000;
    using Dies = std::map<std::pair<int, int>, int>; ///< hard bin by row and column
    std::map<std::string, Dies> m_wafers;
    std::size_t m_count = 0;
};

} // namespace ZYN::Tool
