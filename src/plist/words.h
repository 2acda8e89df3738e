#pragma once

#include <cstdint>
#include <cstring>

// Eight bytes of text at a time.
namespace tallyfold::plist {

// The same byte in all eight places.
[[nodiscard]] constexpr std::uint64_t RepeatedByte(char c) noexcept {
  return 0x0101010101010101U * static_cast<unsigned char>(c);
}

// The eight bytes at `place`, the first in the lowest place on a little-endian machine.
[[nodiscard]] inline std::uint64_t LoadWord(const char* place) noexcept {
  std::uint64_t word;
  std::memcpy(&word, place, sizeof word);
  return word;
}

}  // namespace tallyfold::plist
