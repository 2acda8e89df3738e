#include "model/clean_text.h"

#include <cstddef>

namespace tallyfold {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

unsigned Byte(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

// The length of the valid sequence of two to four bytes at `at`; 0 for none. Overlong forms,
// surrogates and what lies beyond U+10FFFF are not valid.
std::size_t SequenceLength(std::string_view text, std::size_t at) {
  const unsigned first = Byte(text, at);
  const unsigned second = Byte(text, at + 1);
  if ((second & 0xC0U) != 0x80U) return 0;
  if (first >= 0xC2U && first <= 0xDFU) return 2;
  if ((Byte(text, at + 2) & 0xC0U) != 0x80U) return 0;
  if ((first & 0xF0U) == 0xE0U) {
    if (first == 0xE0U && second < 0xA0U) return 0;
    if (first == 0xEDU && second > 0x9FU) return 0;
    return 3;
  }
  if ((Byte(text, at + 3) & 0xC0U) != 0x80U || first < 0xF0U || first > 0xF4U) return 0;
  if (first == 0xF0U && second < 0x90U) return 0;
  if (first == 0xF4U && second > 0x8FU) return 0;
  return 4;
}

bool IsKeptControl(unsigned byte) { return byte == '\t' || byte == '\n' || byte == '\r'; }

}  // namespace

std::string CleanText(std::string_view bytes) {
  std::string clean;
  clean.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const unsigned byte = Byte(bytes, at);
    if (byte < 0x80U) {
      if ((byte >= 0x20U && byte != 0x7FU) || IsKeptControl(byte)) clean += bytes[at];
      ++at;
      continue;
    }
    const std::size_t length = SequenceLength(bytes, at);
    // U+0080 to U+009F are control characters too.
    const bool is_control = length == 2 && byte == 0xC2U && Byte(bytes, at + 1) < 0xA0U;
    if (length == 0) {
      clean += kReplacement;
    } else if (!is_control) {
      clean += bytes.substr(at, length);
    }
    at += length == 0 ? 1 : length;
  }
  return clean;
}

}  // namespace tallyfold
