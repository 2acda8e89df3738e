#include "console/table.h"

#include <algorithm>
#include <utility>

#include "model/case_folding.h"
#include "model/display_width.h"

namespace tallyfold::console {
namespace {

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
