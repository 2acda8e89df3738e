#include "model/display_width.h"

#include <algorithm>
#include <iterator>

#include "model/case_folding.h"

namespace tallyfold {
namespace {

struct WidthRange {
  char32_t first;
  char32_t last;
};

// The blocks that matter in names and notes, not every character of Unicode. Marks that steer the
// direction of text take no room either.
constexpr WidthRange kCombining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD},   {0x0610, 0x061A},   {0x064B, 0x065F},
    {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E},   {0x1AB0, 0x1AFF},   {0x1DC0, 0x1DFF},
    {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2069},   {0x20D0, 0x20FF},   {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0x1F3FB, 0x1F3FF}, {0xE0100, 0xE01EF},
};
constexpr WidthRange kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},
    {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF}, {0x1F900, 0x1FAFF}, {0x20000, 0x3FFFD},
};
constexpr char32_t kFirstCombining = 0x0300;
constexpr char32_t kZeroWidthJoiner = 0x200D;

template <std::size_t Count>
bool Contains(const WidthRange (&ranges)[Count], char32_t c) {
  const WidthRange* range =
      std::upper_bound(std::begin(ranges), std::end(ranges), c,
                       [](char32_t value, const WidthRange& r) { return value < r.first; });
  return range != std::begin(ranges) && c <= std::prev(range)->last;
}

}  // namespace

std::size_t DisplayWidth(std::string_view text) noexcept {
  std::size_t width = 0;
  while (!text.empty()) {
    const char32_t c = TakeCodePoint(text);
    if (c < kFirstCombining) {
      ++width;
    } else if (!Contains(kCombining, c)) {
      width += Contains(kWide, c) ? 2U : 1U;
    }
  }
  return width;
}

std::string_view TakeCharacter(std::string_view& text) noexcept {
  const std::string_view whole = text;
  char32_t last = TakeCodePoint(text);
  while (!text.empty() && !IsAscii(text.front())) {
    std::string_view rest = text;
    const char32_t next = TakeCodePoint(rest);
    if (last != kZeroWidthJoiner && !Contains(kCombining, next)) break;
    text = rest;
    last = next;
  }
  return whole.substr(0, whole.size() - text.size());
}

}  // namespace tallyfold
