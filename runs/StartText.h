#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace ZYN {

/// A time as a report writes it.
struct StartTime {
    std::int64_t ms = 0;          ///< since 1970, UTC; without an offset as if it were UTC
    std::optional<int> utcOffset; ///< minutes
};

/// Reads a time in the extended format of ISO 8601: date, "T" or a blank, hours and minutes, with or without
/// seconds, their fraction and an offset. A date alone is its first moment.
/// \return nothing for another text
std::optional<StartTime> ReadStartTime(std::string_view text);

} // namespace ZYN
