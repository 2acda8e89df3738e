#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "model/case_folding.h"
#include "model/text.h"

namespace tallyfold {
namespace {

// Long s is the only letter whose folded form ("s") takes fewer bytes than itself. Every other
// letter takes as many, so that a text without it is as long wherever it occurs.
constexpr std::string_view kLongS = "\xC5\xBF";

constexpr std::size_t kLongestSkip = std::numeric_limits<std::uint8_t>::max();

char UpperAscii(char letter) noexcept {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// True when `folded` is what `field` begins with; leaves in `field` what comes after.
bool TakePrefix(std::string_view& field, std::string_view folded) noexcept {
  while (!folded.empty()) {
    if (field.empty() || TakeFolded(field) != TakeFolded(folded)) return false;
  }
  return true;
}

// Calls `visit` with each byte that may stand at each place of a folded text in a field.
template <typename Visit>
void ForEachPossibleByte(std::string_view folded, Visit visit) {
  std::size_t place = 0;
  while (!folded.empty()) {
    const std::string_view before = folded;
    const char32_t code_point = TakeCodePoint(folded);
    const std::size_t size = before.size() - folded.size();
    for (std::size_t i = 0; i < size; ++i) {
      visit(place + i, before[i]);
      if (size == 1) visit(place, UpperAscii(before[i]));
    }
    if (size == 2) {
      for (char32_t other = 0x80; other < kFoldingEnd; ++other) {
        if (FoldCodePoint(other) != code_point) continue;
        visit(place, static_cast<char>(0xC0U | other >> 6U));
        visit(place + 1, static_cast<char>(0x80U | (other & 0x3FU)));
      }
    }
    place += size;
  }
}

}  // namespace

CaselessNeedle::CaselessNeedle(std::string_view text) : folded_(FoldCase(text)) {
  if (folded_.empty()) return;
  std::string_view rest = folded_;
  static_cast<void>(TakeCodePoint(rest));
  begins_with_invalid_byte_ = !IsAscii(folded_.front()) && folded_.size() - rest.size() == 1;
  has_s_ = folded_.find('s') != std::string::npos;
  PrepareSkips();
}

// Horspool's table for bytes in either case, made from what may stand before the last place.
void CaselessNeedle::PrepareSkips() {
  const std::size_t last = folded_.size() - 1;
  skips_.fill(static_cast<std::uint8_t>(std::min(folded_.size(), kLongestSkip)));
  const auto skip_after = [this](char byte) -> std::uint8_t& {
    return skips_[static_cast<unsigned char>(byte)];
  };
  ForEachPossibleByte(folded_, [&](std::size_t place, char byte) {
    if (place == last) return;
    const std::size_t skip = std::min(last - place, kLongestSkip);
    skip_after(byte) = std::min(skip_after(byte), static_cast<std::uint8_t>(skip));
  });
  retry_skip_ = kLongestSkip;
  ForEachPossibleByte(folded_, [&](std::size_t place, char byte) {
    if (place == last) retry_skip_ = std::min<std::size_t>(retry_skip_, skip_after(byte));
  });
  ForEachPossibleByte(folded_, [&](std::size_t place, char byte) {
    if (place == last) skip_after(byte) = 0;
  });
}

bool CaselessNeedle::OccursIn(std::string_view field) const noexcept {
  if (folded_.empty() || field.size() < folded_.size()) return false;
  if (begins_with_invalid_byte_ || (has_s_ && field.find(kLongS) != std::string_view::npos)) {
    return OccursByCodePoints(field);
  }
  if (folded_.size() > 1) return OccursBySkipping(field);
  const char lower = folded_.front();
  const char upper = UpperAscii(lower);
  return field.find(lower) != std::string_view::npos ||
         (upper != lower && field.find(upper) != std::string_view::npos);
}

bool CaselessNeedle::Equals(std::string_view field) const noexcept {
  return TakePrefix(field, folded_) && field.empty();
}

// Whatever the field holds, in steps of a code point.
bool CaselessNeedle::OccursByCodePoints(std::string_view field) const noexcept {
  while (!field.empty()) {
    std::string_view candidate = field;
    if (TakePrefix(candidate, folded_)) return true;
    static_cast<void>(TakeCodePoint(field));
  }
  return false;
}

// In a field at least as long as the folded text, which takes as many bytes there.
bool CaselessNeedle::OccursBySkipping(std::string_view field) const noexcept {
  const std::size_t last = folded_.size() - 1;
  std::size_t start = 0;
  while (start < field.size() - last) {
    const std::size_t skip = skips_[static_cast<unsigned char>(field[start + last])];
    if (skip != 0) {
      start += skip;
      continue;
    }
    std::string_view candidate = field.substr(start);
    if (TakePrefix(candidate, folded_)) return true;
    start += retry_skip_;
  }
  return false;
}

}  // namespace tallyfold
