#include "plist/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tallyfold::plist {
namespace {

std::uint8_t ByteOf(char c) noexcept {
  return static_cast<std::uint8_t>(c);
}

bool IsAsciiBlock(const char* block) noexcept {
  std::uint64_t words[8];
  std::memcpy(words, block, sizeof words);
  std::uint64_t bits = 0;
  for (const std::uint64_t word : words) bits |= word;
  return (bits & 0x8080808080808080U) == 0;
}

}  // namespace

Utf8Character FirstUtf8Character(std::string_view text) noexcept {
  const std::uint8_t lead = ByteOf(text[0]);
  if (lead < 0x80) return {lead, 1, true};
  if (lead < 0xC2 || lead > 0xF4 || text.size() < 2) return {0, 1, false};
  const std::uint8_t second = ByteOf(text[1]);
  char32_t code_point = (lead & 0x1FU) << 6U | (second & 0x3FU);
  if (lead < 0xE0) {
    if ((second & 0xC0U) != 0x80) return {0, 1, false};
    return {code_point, 2, true};
  }
  // The second byte's range keeps out overlong forms, surrogates and what lies beyond U+10FFFF.
  const std::uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (second < low || second > high) return {0, 1, false};
  const std::uint8_t size = lead < 0xF0 ? 3 : 4;
  for (std::uint8_t i = 2; i < size; ++i) {
    if (i >= text.size() || (ByteOf(text[i]) & 0xC0U) != 0x80) return {0, i, false};
    code_point = code_point << 6U | (ByteOf(text[i]) & 0x3FU);
  }
  return {code_point & 0x1FFFFFU, size, true};  // without the mark of a lead byte of four
}

std::size_t ValidUtf8Prefix(std::string_view text) noexcept {
  constexpr std::size_t kBlock = 64;
  std::size_t position = 0;
  while (position < text.size()) {
    if (ByteOf(text[position]) < 0x80) {
      while (position + kBlock <= text.size() && IsAsciiBlock(text.data() + position)) {
        position += kBlock;
      }
      const std::size_t end = std::min(position + kBlock, text.size());
      while (position < end && ByteOf(text[position]) < 0x80) ++position;
    } else {
      const Utf8Character character = FirstUtf8Character(text.substr(position));
      if (!character.is_valid) return position;
      position += character.size;
    }
  }
  return position;
}

std::string ToValidUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t valid = ValidUtf8Prefix(text);
    result += text.substr(0, valid);
    text.remove_prefix(valid);
    if (text.empty()) return result;
    result += "\xEF\xBF\xBD";
    text.remove_prefix(FirstUtf8Character(text).size);
  }
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
    return;
  }
  if (character < 0x800) {
    append(0xC0U | (character >> 6U));
  } else {
    if (character < 0x10000) {
      append(0xE0U | (character >> 12U));
    } else {
      append(0xF0U | (character >> 18U));
      append(0x80U | ((character >> 12U) & 0x3FU));
    }
    append(0x80U | ((character >> 6U) & 0x3FU));
  }
  append(0x80U | (character & 0x3FU));
}

}  // namespace tallyfold::plist
