#include "model/clean_text.h"

#include <algorithm>

#include "model/case_folding.h"

namespace tallyfold {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr char32_t kLastCodePoint = 0x10FFFF;

bool IsDropped(char32_t c) {
  if (c == U'\t' || c == U'\n' || c == U'\r') return false;
  // The last two are no characters: other readers of XML refuse a file that has them.
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0xFFFE || c == 0xFFFF;
}

// Kept as it is, and by far the most of any text.
bool IsPlain(char c) {
  return (c >= ' ' && c <= '~') || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

std::string CleanText(std::string_view bytes) {
  std::string clean;
  clean.reserve(bytes.size());
  while (true) {
    const auto plain = static_cast<std::size_t>(
        std::find_if_not(bytes.begin(), bytes.end(), IsPlain) - bytes.begin());
    clean += bytes.substr(0, plain);
    bytes.remove_prefix(plain);
    if (bytes.empty()) break;
    const std::string_view before = bytes;
    const char32_t c = TakeCodePoint(bytes);
    if (c > kLastCodePoint) {
      clean += kReplacement;
    } else if (!IsDropped(c)) {
      clean += before.substr(0, before.size() - bytes.size());
    }
  }
  return clean;
}

}  // namespace tallyfold
