#include "exchange/import_file_kind.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "model/text.h"

namespace tallyfold {
namespace {

constexpr std::string_view kPictureStarts[] = {"\x89PNG\r\n", "\xFF\xD8\xFF", "GIF8",
                                               std::string_view("II*\0", 4),
                                               std::string_view("MM\0*", 4)};
constexpr std::string_view kWebPageStarts[] = {"<!doctype html", "<html"};
constexpr std::string_view kBlanks = " \t\r\n";

// A table is told by its first lines, most of which have two separators or more.
constexpr std::string_view kTableSeparators = ",;\t";
constexpr std::size_t kLinesLookedAt = 20;
constexpr std::size_t kLeastSeparators = 2;

bool BeginsIgnoringCase(std::string_view text, std::string_view start) {
  return CompareIgnoringCase(text.substr(0, start.size()), start) == 0;
}

bool IsTable(std::string_view text) {
  std::array<std::size_t, kTableSeparators.size()> rows{};
  std::size_t lines = 0;
  while (lines < kLinesLookedAt) {
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    if (text.empty()) break;
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    text.remove_prefix(line.size());
    ++lines;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const auto found = std::count(line.begin(), line.end(), kTableSeparators[i]);
      if (static_cast<std::size_t>(found) >= kLeastSeparators) ++rows[i];
    }
  }
  return lines > 0 && *std::max_element(rows.begin(), rows.end()) * 2 >= lines;
}

bool HasHeader(std::string_view text) {
  if (text.starts_with('!')) return true;
  for (std::size_t found = text.find('!'); found != std::string_view::npos;
       found = text.find('!', found + 1)) {
    if (text[found - 1] == '\n' || text[found - 1] == '\r') return true;
  }
  return false;
}

}  // namespace

bool IsPicture(std::string_view bytes) noexcept {
  return std::any_of(std::begin(kPictureStarts), std::end(kPictureStarts),
                     [bytes](std::string_view start) { return bytes.starts_with(start); });
}

ImportFileKind KindOfImportText(std::string_view text) {
  const std::string_view content =
      text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
  if (content.empty()) return ImportFileKind::Empty;
  for (const std::string_view start : kWebPageStarts) {
    if (BeginsIgnoringCase(content, start)) return ImportFileKind::WebPage;
  }
  if (text.find('^') != std::string_view::npos || HasHeader(text)) return ImportFileKind::Qif;
  return IsTable(content) ? ImportFileKind::Table : ImportFileKind::Foreign;
}

}  // namespace tallyfold
