#include "model/case_folding.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tallyfold {
namespace {

// Code points from `first` to `last`, `step` apart, whose form is `distance` further on.
struct Range {
  char32_t first;
  char32_t last;
  char32_t step;
  std::int32_t distance;
};

constexpr Range kRanges[] = {
    // Latin and Latin-1
    {U'A', U'Z', 1, 32},
    {0x00B5, 0x00B5, 1, 775},  // micro sign: Greek mu
    {0x00C0, 0x00D6, 1, 32},
    {0x00D8, 0x00DE, 1, 32},
    // Latin Extended-A; dotted capital I has no single form
    {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},
    {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1},
    {0x017F, 0x017F, 1, -268},  // long s
    // Greek and Coptic
    {0x0370, 0x0372, 2, 1},
    {0x0376, 0x0376, 1, 1},
    {0x037F, 0x037F, 1, 116},
    {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37},
    {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63},
    {0x0391, 0x03A1, 1, 32},
    {0x03A3, 0x03AB, 1, 32},
    {0x03C2, 0x03C2, 1, 1},  // final sigma
    {0x03CF, 0x03CF, 1, 8},
    {0x03D0, 0x03D0, 1, -30},
    {0x03D1, 0x03D1, 1, -25},
    {0x03D5, 0x03D5, 1, -15},
    {0x03D6, 0x03D6, 1, -22},
    {0x03D8, 0x03EE, 2, 1},
    {0x03F0, 0x03F0, 1, -54},
    {0x03F1, 0x03F1, 1, -48},
    {0x03F4, 0x03F4, 1, -60},
    {0x03F5, 0x03F5, 1, -64},
    {0x03F7, 0x03F7, 1, 1},
    {0x03F9, 0x03F9, 1, -7},
    {0x03FA, 0x03FA, 1, 1},
    {0x03FD, 0x03FF, 1, -130},
    // Cyrillic and its supplement
    {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32},
    {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},
    {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},
};

constexpr std::size_t kTableSize = kFoldingEnd;

constexpr std::array<std::uint16_t, kTableSize> MakeTable() {
  std::array<std::uint16_t, kTableSize> table{};
  for (std::size_t i = 0; i < kTableSize; ++i) table[i] = static_cast<std::uint16_t>(i);
  for (const Range& range : kRanges) {
    for (char32_t i = range.first; i <= range.last; i += range.step) {
      table[i] = static_cast<std::uint16_t>(static_cast<std::int32_t>(i) + range.distance);
    }
  }
  return table;
}

constexpr std::array<std::uint16_t, kTableSize> kTable = MakeTable();

}  // namespace

char32_t FoldCodePoint(char32_t code_point) noexcept {
  return code_point < kTableSize ? kTable[code_point] : code_point;
}

}  // namespace tallyfold
