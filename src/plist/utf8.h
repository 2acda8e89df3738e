#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// UTF-8 as Unicode defines it: no overlong forms, no surrogates, nothing above U+10FFFF.
namespace tallyfold::plist {

struct Utf8Character {
  char32_t code_point = 0;  // of a valid character
  // In bytes, at least 1: of the character, or of what ToValidUtf8() replaces by one U+FFFD.
  std::uint8_t size = 0;
  bool is_valid = false;
};

// What a text that is not empty begins with.
[[nodiscard]] Utf8Character FirstUtf8Character(std::string_view text) noexcept;

// The number of bytes before the first that is no part of valid UTF-8; the size of a valid text.
[[nodiscard]] std::size_t ValidUtf8Prefix(std::string_view text) noexcept;

[[nodiscard]] inline bool IsValidUtf8(std::string_view text) noexcept {
  return ValidUtf8Prefix(text) == text.size();
}

// The text with U+FFFD in place of each invalid sequence: of each longest run of bytes that begins
// a character and breaks off, and of each other byte that can begin none.
[[nodiscard]] std::string ToValidUtf8(std::string_view text);

// Appends a character, which is no surrogate and at most U+10FFFF.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace tallyfold::plist
