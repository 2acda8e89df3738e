#include "system/line_editor.h"

#include <cstddef>

namespace tallyfold {
namespace {

// Of a character that begins with that byte; 0 for one that begins none.
std::size_t SizeFromFirst(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

bool IsCharacter(char32_t c, std::size_t size) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return c >= kLeast[size] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

}  // namespace

bool TakeTyped(std::string_view& bytes, bool is_all, char32_t& character) {
  const auto first = static_cast<unsigned char>(bytes.front());
  const std::size_t size = SizeFromFirst(first);
  char32_t c = size > 1 ? first & (0x7FU >> size) : first;
  std::size_t read = 1;
  for (; read < size && read < bytes.size(); ++read) {
    const auto next = static_cast<unsigned char>(bytes[read]);
    if ((next & 0xC0U) != 0x80) break;
    c = (c << 6U) | (next & 0x3FU);
  }
  if (read < size && read == bytes.size() && !is_all) return false;
  const bool is_whole = size != 0 && read == size && IsCharacter(c, size);
  character = is_whole ? c : LineEditor::kMisfit + first;
  bytes.remove_prefix(is_whole ? size : 1);
  return true;
}

}  // namespace tallyfold
