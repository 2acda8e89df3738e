#include "console/table.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/case_folding.h"
#include "model/display_width.h"
#include "plist/utf8.h"

namespace tallyfold::console {
namespace {

constexpr std::size_t kGap = 2;

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// Characters without a shape that part lines, or change how what stands beside them is shown. Those
// that join pictures and letters into one are none of them.
bool IsUnseen(char32_t c) {
  constexpr std::pair<char32_t, char32_t> kRanges[] = {
      {0x061C, 0x061C}, {0x200B, 0x200B}, {0x200E, 0x200F}, {0x2028, 0x202E},
      {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0001, 0xE0001}};
  return std::any_of(std::begin(kRanges), std::end(kRanges),
                     [c](const auto& range) { return c >= range.first && c <= range.second; });
}

void AppendNumber(std::string& text, std::string_view mark, char32_t c, unsigned digits) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text += mark;
  while (digits-- > 0) text += kDigits[(c >> (4 * digits)) & 0xFU];
}

// Control characters as their escapes, and `backslash` for each backslash.
std::string WithoutControls(std::string_view text, std::string_view backslash) {
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
          AppendNumber(escaped, "\\x", c, 2);
        } else {
          escaped += before.substr(0, before.size() - text.size());
        }
    }
  }
  return escaped;
}

// What a terminal would take for something else than text as its number.
std::string WithoutUnseen(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const auto first = plist::FirstUtf8Character(text);
    if (!first.is_valid) {
      for (const char byte : text.substr(0, first.size)) {
        AppendNumber(shown, "\\x", static_cast<unsigned char>(byte), 2);
      }
    } else if (IsUnseen(first.code_point)) {
      const bool is_long = first.code_point > 0xFFFF;
      AppendNumber(shown, is_long ? "\\U" : "\\u", first.code_point, is_long ? 8 : 4);
    } else {
      shown += text.substr(0, first.size);
    }
    text.remove_prefix(first.size);
  }
  return shown;
}

// Days, amounts and other figures, which say something else when they are cut.
bool IsFigure(std::string_view cell) {
  while (!cell.empty()) {
    const std::string_view before = cell;
    const char32_t c = TakeCodePoint(cell);
    const std::string_view first = before.substr(0, before.size() - cell.size());
    if (c > 0x7F ? DisplayWidth(first) > 0 : (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
      return false;
    }
  }
  return true;
}

std::string Cut(std::string_view cell, std::size_t width) {
  if (DisplayWidth(cell) <= width) return std::string(cell);
  std::string cut;
  std::size_t used = 1;  // the ellipsis
  while (!cell.empty()) {
    const std::string_view character = TakeCharacter(cell);
    used += DisplayWidth(character);
    if (used > width) break;
    cut += character;
  }
  cut.erase(cut.find_last_not_of(' ') + 1);
  return cut + "…";
}

// The cell in lines of at most `width`, parted between words where that can be.
std::vector<std::string> Broken(std::string_view cell, std::size_t width) {
  std::vector<std::string> lines(1);
  std::size_t used = 0;
  while (!cell.empty()) {
    const std::size_t end = cell.find_first_not_of(' ', std::min(cell.find(' '), cell.size()));
    std::string_view word = cell.substr(0, end);
    cell.remove_prefix(word.size());
    const std::size_t size = DisplayWidth(word.substr(0, word.find_last_not_of(' ') + 1));
    if (used > 0 && used + size > width) {
      lines.emplace_back();
      used = 0;
    }
    while (!word.empty()) {
      const std::string_view character = TakeCharacter(word);
      const std::size_t takes = DisplayWidth(character);
      if (used > 0 && used + takes > width && character != " ") {
        lines.emplace_back();
        used = 0;
      }
      lines.back() += character;
      used += takes;
    }
  }
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  return lines;
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
  return WithoutUnseen(WithoutControls(text, "\\"));
}

std::string PrintablePage(std::string_view text) {
  std::string page;
  page.reserve(text.size());
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\n\f"), text.size());
    page += Printable(text.substr(0, end));
    if (end < text.size()) page += text[end];
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return page;
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

std::vector<std::size_t> Table::WidthsWithin(const std::vector<Row>& lines,
                                             std::size_t width) const {
  // A letter or two and the ellipsis.
  constexpr std::size_t kLeast = 3;
  std::vector<std::size_t> widths(columns_.size(), 0);
  std::vector<std::size_t> least(columns_.size(), 0);
  for (const Row& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::size_t size = DisplayWidth(line[i]);
      widths[i] = std::max(widths[i], size);
      const bool is_firm = columns_[i].align == Column::Align::Right || IsFigure(line[i]);
      least[i] = std::max(least[i], is_firm ? size : std::min(size, kLeast));
    }
  }
  std::size_t total = widths.empty() ? 0 : kGap * (widths.size() - 1);
  for (const std::size_t each : widths) total += each;
  // The widest gives way first.
  while (width != 0 && total > width) {
    std::size_t widest = columns_.size();
    std::size_t second = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (widths[i] == least[i]) continue;
      if (widest == columns_.size() || widths[i] > widths[widest]) {
        if (widest != columns_.size()) second = std::max(second, widths[widest]);
        widest = i;
      } else {
        second = std::max(second, widths[i]);
      }
    }
    if (widest == columns_.size()) break;
    const std::size_t floor = std::max(least[widest], std::min(second, widths[widest] - 1));
    const std::size_t less = std::min(total - width, widths[widest] - floor);
    widths[widest] -= less;
    total -= less;
  }
  return widths;
}

void Table::AppendLine(std::string& text, const Row& line,
                       const std::vector<std::size_t>& widths) const {
  std::vector<std::string> last(1);
  std::size_t indent = 0;
  std::string aligned;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (i != 0) aligned.append(kGap, ' ');
    if (i + 1 == line.size()) indent = DisplayWidth(aligned);
    std::string cell = line[i];
    if (i + 1 == line.size() && columns_[i].long_cell == Column::Long::GoesOn) {
      last = Broken(cell, widths[i]);
      cell = last.front();
    } else {
      cell = Cut(cell, widths[i]);
    }
    AppendPadded(aligned, cell, widths[i] - std::min(widths[i], DisplayWidth(cell)),
                 columns_[i].align);
  }
  aligned.erase(aligned.find_last_not_of(' ') + 1);
  text += aligned;
  text += '\n';
  for (std::size_t i = 1; i < last.size(); ++i) {
    text.append(indent, ' ');
    text += last[i];
    text += '\n';
  }
}

std::string Table::Aligned(std::size_t width) const {
  std::vector<Row> lines;
  lines.reserve(rows_.size() + 1);
  Row titles;
  for (const Column& column : columns_) titles.emplace_back(column.title);
  lines.push_back(std::move(titles));
  for (const Row& row : rows_) {
    Row& shown = lines.emplace_back();
    for (const std::string& cell : row) shown.push_back(WithoutUnseen(cell));
  }
  const std::vector<std::size_t> widths = WidthsWithin(lines, width);
  std::string text;
  for (const Row& line : lines) AppendLine(text, line, widths);
  return text;
}

}  // namespace tallyfold::console
