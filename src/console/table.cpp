#include "console/table.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/case_folding.h"

namespace tallyfold::console {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// The blocks that matter in names and notes, not every character of Unicode.
constexpr Range kCombining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
    {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xE0100, 0xE01EF},
};
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},
    {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF}, {0x1F900, 0x1FAFF}, {0x20000, 0x3FFFD},
};

template <std::size_t Count>
bool Contains(const Range (&ranges)[Count], char32_t c) {
  const Range* range =
      std::upper_bound(std::begin(ranges), std::end(ranges), c,
                       [](char32_t value, const Range& r) { return value < r.first; });
  return range != std::begin(ranges) && c <= std::prev(range)->last;
}

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// Control characters as their escapes, and `backslash` for each backslash.
std::string WithoutControls(std::string_view text, std::string_view backslash) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string escaped;
  escaped.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t c = TakeCodePoint(text);
    switch (c) {
      case U'\t':
        escaped += "\\t";
        break;
      case U'\n':
        escaped += "\\n";
        break;
      case U'\r':
        escaped += "\\r";
        break;
      case U'\\':
        escaped += backslash;
        break;
      default:
        if (IsControl(c)) {
          escaped += "\\x";
          escaped += kDigits[(c >> 4U) & 0xFU];
          escaped += kDigits[c & 0xFU];
        } else {
          escaped += before.substr(0, before.size() - text.size());
        }
    }
  }
  return escaped;
}

void AppendPadded(std::string& line, const std::string& cell, std::size_t padding,
                  Column::Align align) {
  if (align == Column::Align::Right) line.append(padding, ' ');
  line += cell;
  if (align == Column::Align::Left) line.append(padding, ' ');
}

}  // namespace

std::string Escaped(std::string_view text) {
  return WithoutControls(text, "\\\\");
}

std::string Printable(std::string_view text) {
  return WithoutControls(text, "\\");
}

std::size_t DisplayWidth(std::string_view text) noexcept {
  std::size_t width = 0;
  while (!text.empty()) {
    const char32_t c = TakeCodePoint(text);
    if (Contains(kCombining, c)) continue;
    width += Contains(kWide, c) ? 2U : 1U;
  }
  return width;
}

void Table::Add(std::vector<std::string> cells) {
  cells.resize(columns_.size());
  for (std::string& cell : cells) cell = Escaped(cell);
  rows_.push_back(std::move(cells));
}

std::string Table::TabSeparated() const {
  std::string text;
  const auto end_cell = [&](std::size_t i) { text += i + 1 < columns_.size() ? '\t' : '\n'; };
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    text += columns_[i].title;
    end_cell(i);
  }
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += row[i];
      end_cell(i);
    }
  }
  return text;
}

std::string Table::Aligned() const {
  std::vector<std::vector<std::string>> lines;
  lines.reserve(rows_.size() + 1);
  std::vector<std::string> titles;
  for (const Column& column : columns_) titles.emplace_back(column.title);
  lines.push_back(std::move(titles));
  lines.insert(lines.end(), rows_.begin(), rows_.end());

  std::vector<std::size_t> widths(columns_.size(), 0);
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(line[i]));
    }
  }
  std::string text;
  for (const auto& line : lines) {
    std::string aligned;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i != 0) aligned += "  ";
      AppendPadded(aligned, line[i], widths[i] - DisplayWidth(line[i]), columns_[i].align);
    }
    aligned.erase(aligned.find_last_not_of(' ') + 1);
    text += aligned;
    text += '\n';
  }
  return text;
}

}  // namespace tallyfold::console
