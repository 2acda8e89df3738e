#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "model/case_folding.h"
#include "model/text.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

constexpr std::size_t kLongestSkip = std::numeric_limits<std::uint8_t>::max();

char UpperAscii(char letter) noexcept {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::string Utf8(char32_t code_point) {
  std::string text;
  plist::AppendUtf8(text, code_point);
  return text;
}

// Most of the time this is all that searching for a k or an s costs more than for other letters, so
// it reads eight bytes at a time, at the end some of them once more.
bool IsAsciiText(std::string_view text) noexcept {
  constexpr std::size_t kStep = sizeof(std::uint64_t);
  std::uint64_t bits = 0;
  if (text.size() < kStep) {
    for (const char byte : text) bits |= static_cast<unsigned char>(byte);
  } else {
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i + kStep < text.size(); i += kStep) {
      std::memcpy(&bytes, text.data() + i, kStep);
      bits |= bytes;
    }
    std::memcpy(&bytes, text.data() + text.size() - kStep, kStep);
    bits |= bytes;
  }
  return (bits & 0x8080'8080'8080'8080U) == 0;
}

// True when `folded` is what `field` begins with; leaves in `field` what comes after.
bool TakePrefix(std::string_view& field, std::string_view folded) noexcept {
  while (!folded.empty()) {
    if (field.empty() || TakeFolded(field) != TakeFolded(folded)) return false;
  }
  return true;
}

// Calls `visit` with each byte that may stand at each place of a folded text in a field where every
// letter takes as many bytes as its folded form.
template <typename Visit>
void ForEachPossibleByte(std::string_view folded, Visit visit) {
  std::size_t place = 0;
  while (!folded.empty()) {
    const std::string_view before = folded;
    const char32_t code_point = TakeCodePoint(folded);
    const std::size_t size = before.size() - folded.size();
    for (std::size_t i = 0; i < size; ++i) visit(place + i, before[i]);
    for (const char32_t other : OtherCasesOf(code_point)) {
      const std::string bytes = Utf8(other);
      if (bytes.size() != size) continue;
      for (std::size_t i = 0; i < size; ++i) visit(place + i, bytes[i]);
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
  NoteOtherSizes();
  PrepareSkips();
}

void CaselessNeedle::NoteOtherSizes() {
  for (std::string_view rest = folded_; !rest.empty();) {
    const std::size_t before = rest.size();
    const char32_t code_point = TakeCodePoint(rest);
    const std::size_t size = before - rest.size();
    std::size_t least = size;
    for (const char32_t other : OtherCasesOf(code_point)) {
      std::string bytes = Utf8(other);
      if (bytes.size() == size) continue;
      least = std::min(least, bytes.size());
      if (std::find(other_sizes_.begin(), other_sizes_.end(), bytes) == other_sizes_.end()) {
        other_sizes_.push_back(std::move(bytes));
      }
    }
    least_size_ += least;
  }
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
  if (folded_.empty() || field.size() < least_size_) return false;
  if (begins_with_invalid_byte_ || HoldsOtherSizes(field)) return OccursByCodePoints(field);
  if (field.size() < folded_.size()) return false;
  if (folded_.size() > 1) return OccursBySkipping(field);
  const char lower = folded_.front();
  const char upper = UpperAscii(lower);
  return field.find(lower) != std::string_view::npos ||
         (upper != lower && field.find(upper) != std::string_view::npos);
}

bool CaselessNeedle::Equals(std::string_view field) const noexcept {
  return TakePrefix(field, folded_) && field.empty();
}

// Most fields are ASCII, where no letter takes more than a byte; which costs least to see.
bool CaselessNeedle::HoldsOtherSizes(std::string_view field) const noexcept {
  if (other_sizes_.empty() || IsAsciiText(field)) return false;
  return std::any_of(other_sizes_.begin(), other_sizes_.end(), [field](const std::string& other) {
    return field.find(other) != std::string_view::npos;
  });
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
