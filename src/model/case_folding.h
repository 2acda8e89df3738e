#pragma once

#include <string>
#include <string_view>

#include "plist/utf8.h"

namespace tallyfold {

// The form of one code point that all its cases share, each on its own (simple folding, as the
// Unicode tables have it). What has no single code point as its form comes back unchanged, as does
// any other value.
[[nodiscard]] char32_t FoldCodePoint(char32_t code_point) noexcept;

// The code points other than itself that fold to `folded`, a folded one.
[[nodiscard]] std::u32string OtherCasesOf(char32_t folded);

// Takes the next code point off the front of `text`, which must not be empty. A byte that begins
// no valid UTF-8 sequence is taken alone and comes back as a value of its own beyond all code
// points, so that invalid texts still compare by their bytes.
[[nodiscard]] inline char32_t TakeCodePoint(std::string_view& text) noexcept {
  constexpr char32_t kInvalidByte = 0x110000;
  const plist::Utf8Character first = plist::FirstUtf8Character(text);
  const char32_t code_point =
      first.is_valid ? first.code_point : kInvalidByte + static_cast<unsigned char>(text.front());
  text.remove_prefix(first.is_valid ? first.size : 1);
  return code_point;
}

[[nodiscard]] inline bool IsAscii(char byte) noexcept {
  return static_cast<unsigned char>(byte) < 0x80;
}

[[nodiscard]] inline char FoldAscii(char letter) noexcept {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// As TakeCodePoint(), folded.
[[nodiscard]] inline char32_t TakeFolded(std::string_view& text) noexcept {
  if (IsAscii(text.front())) {
    const char letter = FoldAscii(text.front());
    text.remove_prefix(1);
    return static_cast<unsigned char>(letter);
  }
  return FoldCodePoint(TakeCodePoint(text));
}

}  // namespace tallyfold
