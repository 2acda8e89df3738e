#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "exchange/qif_import.h"
#include "model/text.h"

namespace tallyfold {

// A section begins with this and the name of its kind.
inline constexpr std::string_view kSectionCode = "!Type:";
inline constexpr std::string_view kCategoryList = "!Type:Cat\r";

// Walks a QIF text with carriage returns by its "!Type:" headers. `list` is called with the text of
// each section that holds entries, from its header's line end to the next header of any kind;
// `other` with the type of each section that does not. A text without any such header is one list.
// The types of lists are those of validListTypes(), whatever their case.
template <typename List, typename Other>
void ForEachQifSection(std::string_view text, List list, Other other) {
  constexpr std::string_view kBlanks = " \t";
  std::size_t found = text.find(kSectionCode);
  if (found == std::string_view::npos) return list(text);
  while (found != std::string_view::npos) {
    const std::size_t start = found + kSectionCode.size();
    const std::size_t line_end = std::min(text.find('\r', start), text.size());
    std::string_view type = text.substr(start, line_end - start);
    type.remove_prefix(std::min(type.find_first_not_of(kBlanks), type.size()));
    type = type.substr(0, type.find_last_not_of(kBlanks) + 1);
    const auto& types = LDGRQIFImport::validListTypes();
    std::size_t end = line_end;
    if (std::any_of(types.begin(), types.end(),
                    [type](const auto& each) { return CompareIgnoringCase(each, type) == 0; })) {
      end = std::min(text.find("\r!", line_end), text.size());
      list(text.substr(line_end, end - line_end));
    } else {
      other(type);
    }
    found = text.find(kSectionCode, end);
  }
}

}  // namespace tallyfold
