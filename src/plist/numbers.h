#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Numbers as they stand in property lists: white space around them does not matter, and they may
// have a sign.
namespace tallyfold::plist {

// Decimal, or hexadecimal after "0x". None for anything else and beyond 64 bits.
[[nodiscard]] std::optional<std::int64_t> ParseInteger(std::string_view text) noexcept;

// A decimal number with or without exponent, "nan", "inf" or "infinity" in any case. None for
// anything else and for numbers that a double cannot hold.
[[nodiscard]] std::optional<double> ParseReal(std::string_view text) noexcept;

}  // namespace tallyfold::plist
