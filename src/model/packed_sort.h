#pragma once

#include <bit>
#include <cstdint>
#include <span>

namespace tallyfold {

// A key of up to 128 bits, packed so that the order of (high, low) is the order wanted, and the
// index of what it belongs to.
struct PackedKey {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
  std::uint32_t index = 0;
};

// Sorts by (high, low), equal keys in the order they had. Linear: one pass for each of the 16 bytes
// in which any two keys differ, and in registers few of them do.
void SortPacked(std::span<PackedKey> keys);

// Numbers as unsigned ones of the same order.
[[nodiscard]] constexpr std::uint32_t InOrder(std::int32_t number) noexcept {
  return static_cast<std::uint32_t>(number) ^ 0x8000'0000U;
}
// Both zeros are one; not-a-number comes before all numbers.
[[nodiscard]] constexpr std::uint64_t InOrder(double number) noexcept {
  if (number != number) return 0;
  constexpr std::uint64_t kSign = 0x8000'0000'0000'0000U;
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}
// The first number decides.
[[nodiscard]] constexpr std::uint64_t Packed(std::uint32_t first, std::uint32_t second) noexcept {
  return std::uint64_t{first} << 32U | second;
}

}  // namespace tallyfold
