#include "model/text.h"

#include <algorithm>
#include <cstddef>

#include "model/case_folding.h"
#include "platform/ambient.h"
#include "plist/utf8.h"

namespace tallyfold {
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
      plist::AppendUtf8(result, folded);
    }
  }
  return result;
}

void AppendOrderForm(std::string& forms, std::string_view text) {
  while (!text.empty()) {
    const auto other = std::ranges::find_if_not(text, IsAscii);
    const auto letters = static_cast<std::size_t>(other - text.begin());
    const std::size_t start = forms.size();
    forms.append(text.substr(0, letters));
    for (std::size_t i = start; i < forms.size(); ++i) forms[i] = FoldAscii(forms[i]);
    text.remove_prefix(letters);
    if (text.empty()) return;
    const std::string_view before = text;
    const char32_t code_point = TakeCodePoint(text);
    const char32_t folded = FoldCodePoint(code_point);
    const std::size_t size = before.size() - text.size();
    if (folded != code_point) {
      plist::AppendUtf8(forms, folded);
      continue;
    }
    // A byte that is no letter comes after all letters.
    if (size == 1) forms.push_back('\xFF');
    forms.append(before.substr(0, size));
  }
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

std::string StringsToEnglishList(const std::vector<std::string>& items) {
  std::string list;
  if (items.empty()) return list;
  list = items.front();
  if (items.size() == 1) return list;
  for (std::size_t i = 1; i + 1 < items.size(); ++i) list.append(", ").append(items[i]);
  return list.append(" ").append(LocalizedText("and")).append(" ").append(items.back());
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) {
    rest.remove_prefix(plist::FirstUtf8Character(rest).size);
  }
  if (rest.empty()) return std::string(text);
  return std::string(text.substr(0, text.size() - rest.size())) + "\u2026";
}

std::string MessageWithText(std::string_view format, std::string_view text) {
  std::string message(format);
  const std::size_t place = message.find("%@");
  if (place != std::string::npos) message.replace(place, 2, text);
  return message;
}

}  // namespace tallyfold
