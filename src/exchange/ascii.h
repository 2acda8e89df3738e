#pragma once

#include <string_view>

namespace tallyfold {

// Characters as all encodings of banks' files have them.

[[nodiscard]] inline bool IsAsciiDigit(char character) noexcept {
  return character >= '0' && character <= '9';
}
[[nodiscard]] inline bool IsAsciiLetter(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}
// Blank, tab or line end.
[[nodiscard]] inline bool IsAsciiSpace(char character) noexcept {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// Without spaces before and behind it.
[[nodiscard]] inline std::string_view WithoutSpaces(std::string_view text) noexcept {
  while (!text.empty() && IsAsciiSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsAsciiSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace tallyfold
