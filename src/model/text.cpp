#include "model/text.h"

#include <algorithm>
#include <cstddef>

#include "model/case_folding.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

bool IsAscii(char byte) noexcept {
  return static_cast<unsigned char>(byte) < 0x80;
}

char FoldAscii(char letter) noexcept {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// Takes the next code point, folded, off the front of a text that is not empty.
char32_t TakeFolded(std::string_view& text) noexcept {
  if (IsAscii(text.front())) {
    const char letter = FoldAscii(text.front());
    text.remove_prefix(1);
    return static_cast<unsigned char>(letter);
  }
  return FoldCodePoint(TakeCodePoint(text));
}

// Two bytes are enough for whatever folding changes.
void AppendFolded(std::string& result, char32_t code_point) {
  if (code_point < 0x80) {
    result.push_back(static_cast<char>(code_point));
  } else {
    result.push_back(static_cast<char>(0xC0U | code_point >> 6U));
    result.push_back(static_cast<char>(0x80U | (code_point & 0x3FU)));
  }
}

// True when `folded` is what `field` begins with; leaves in `field` what comes after.
bool TakePrefix(std::string_view& field, std::string_view folded) noexcept {
  while (!folded.empty()) {
    if (field.empty() || TakeFolded(field) != TakeCodePoint(folded)) return false;
  }
  return true;
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    if (IsAscii(text.front())) {
      result.push_back(FoldAscii(text.front()));
      text.remove_prefix(1);
      continue;
    }
    const std::string_view before = text;
    const char32_t code_point = TakeCodePoint(text);
    const char32_t folded = FoldCodePoint(code_point);
    if (folded == code_point) {
      result.append(before.substr(0, before.size() - text.size()));
    } else {
      AppendFolded(result, folded);
    }
  }
  return result;
}

int CompareIgnoringCase(std::string_view a, std::string_view b) noexcept {
  while (!a.empty() && !b.empty()) {
    const char32_t left = TakeFolded(a);
    const char32_t right = TakeFolded(b);
    if (left != right) return left > right ? 1 : -1;
  }
  if (a.empty() && b.empty()) return 0;
  return b.empty() ? 1 : -1;
}

CaselessNeedle::CaselessNeedle(std::string_view text) : folded_(FoldCase(text)) {}

bool CaselessNeedle::OccursIn(std::string_view field) const noexcept {
  if (folded_.empty()) return false;
  std::string_view rest_of_needle = folded_;
  const char32_t first = TakeCodePoint(rest_of_needle);
  while (!field.empty()) {
    if (TakeFolded(field) != first) continue;
    std::string_view candidate = field;
    if (TakePrefix(candidate, rest_of_needle)) return true;
  }
  return false;
}

bool CaselessNeedle::Equals(std::string_view field) const noexcept {
  return TakePrefix(field, folded_) && field.empty();
}

std::string StringsToEnglishList(const std::vector<std::string>& items) {
  std::string list;
  if (items.empty()) return list;
  list = items.front();
  if (items.size() == 1) return list;
  for (std::size_t i = 1; i + 1 < items.size(); ++i) list.append(", ").append(items[i]);
  return list.append(" ").append(LocalizedText("and")).append(" ").append(items.back());
}

std::string MessageWithText(std::string_view format, std::string_view text) {
  std::string message(format);
  const std::size_t place = message.find("%@");
  if (place != std::string::npos) message.replace(place, 2, text);
  return message;
}

}  // namespace tallyfold
