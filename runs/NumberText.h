#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers of a report's texts. Blanks around a number do not matter.
namespace ZYN::NumberText {

std::string_view Trimmed(std::string_view text);

/// A decimal integer of 32 bits; nothing for another text.
std::optional<int> ToInteger(std::string_view text);

/// The number that a decimal text gives when its point is moved by `shift` places before the conversion,
/// correctly rounded. "nan", "inf" and "-inf" are numbers, "1e999" is none.
std::optional<double> ToReal(std::string_view text, int shift);

/// The bits of digits in base 16 or 2, up to 64.
std::optional<std::uint64_t> ToBits(std::string_view text, int base);

/// The digits of a whole number of up to 64 bits, once the point is moved; nothing for what is not whole or
/// has an exponent.
std::optional<std::string> ToWholeDigits(std::string_view text, int shift);

} // namespace ZYN::NumberText
