#pragma once

#include "runs/Run.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

/// \file
/// One item of a run, for who shows them one by one.

namespace ZYN {

/// The text of a position; null where it has none.
inline const std::string* FindText(const Run::Texts& texts, std::uint32_t position)
{
    const auto found = std::ranges::lower_bound(texts, position, {}, &Run::Texts::value_type::first);
    return found != texts.end() && found->first == position ? &found->second : nullptr;
}

/// The duration of a position as it was written, in seconds: 0.0123, not the float that is nearest to it.
inline std::optional<double> SecondsAt(const Run& run, std::uint32_t position)
{
    const float seconds = run.seconds[position];
    if (std::isnan(seconds))
        return std::nullopt;
    std::array<char, 32> digits;
    const char* const end = std::to_chars(digits.begin(), digits.end(), seconds).ptr;
    double number = double(seconds);
    std::from_chars(digits.begin(), end, number);
    return number;
}

/// Whether a run has the result of a measurement at a position.
inline bool IsMeasuredAt(const Run& run, std::uint32_t position)
{
    return run.codes[position] != Run::NoCode &&
           run.layout->components[position].kind == ComponentKind::Measurement;
}

} // namespace ZYN
