#include "exchange/table_reader.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace tallyfold {
namespace {

bool IsCellBlank(char character) noexcept {
  return character == ' ' || character == '\t';
}

bool IsLineEnd(char character) noexcept {
  return character == '\n' || character == '\r';
}

// The first place from `place` on that has `mark` or a line end; the text's end for none.
std::size_t FindMark(std::string_view text, std::size_t place, char mark) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    // Eight bytes at a time: the lowest high bit is that of the first byte that is 0, or below the
    // one behind the line ends. Of such the others are rare.
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    const auto below = [](std::uint64_t word, std::uint64_t limit) {
      return (word - kOnes * limit) & ~word & kHighBits;
    };
    const std::uint64_t marks = kOnes * static_cast<unsigned char>(mark);
    while (place + 8 <= text.size()) {
      std::uint64_t word = 0;
      std::memcpy(&word, text.data() + place, sizeof word);
      const std::uint64_t found = below(word ^ marks, 1) | below(word, '\r' + 1);
      if (found == 0) {
        place += 8;
        continue;
      }
      place += static_cast<std::size_t>(std::countr_zero(found)) / 8;
      if (text[place] == mark || IsLineEnd(text[place])) return place;
      ++place;
    }
  }
  while (place < text.size() && text[place] != mark && !IsLineEnd(text[place])) ++place;
  return place;
}

// Without the blanks around it.
std::string_view BareCell(const char* begin, const char* end) noexcept {
  while (begin != end && IsCellBlank(*begin)) ++begin;
  while (begin != end && IsCellBlank(end[-1])) --end;
  return {begin, static_cast<std::size_t>(end - begin)};
}

// Spreadsheets are told by ="007" that a cell is text.
bool IsMarkedAsText(std::string_view text, std::size_t place) noexcept {
  return text[place] == '=' && place + 1 < text.size() && text[place + 1] == '"';
}

// One quote for each two.
std::string WithoutTwins(std::string_view raw) {
  std::string text;
  text.reserve(raw.size());
  for (std::size_t i = 0; i < raw.size(); ++i) {
    text += raw[i];
    if (raw[i] == '"' && i + 1 < raw.size() && raw[i + 1] == '"') ++i;
  }
  return text;
}

}  // namespace

bool TableScanner::Next(TableRow& row) {
  while (place_ < text_.size()) {
    ReadRow(row);
    if (!row.cells_.empty()) return true;
  }
  return false;
}

// Leaves the row without cells where none has text.
void TableScanner::ReadRow(TableRow& row) {
  row.cells_.clear();
  if (!row.unquoted_.empty()) row.unquoted_.clear();
  row.line_ = line_;
  row.place_ = place_;
  bool has_text = false;
  for (;;) {
    const std::string_view cell = ReadCell(row);
    has_text = has_text || !cell.empty();
    row.cells_.push_back(cell);
    if (place_ == text_.size() || text_[place_] != delimiter_) break;
    ++place_;
  }
  SkipLineEnd();
  if (!has_text) row.cells_.clear();
}

void TableScanner::SkipLineEnd() noexcept {
  if (place_ == text_.size()) return;
  const bool is_pair =
      text_[place_] == '\r' && place_ + 1 < text_.size() && text_[place_ + 1] == '\n';
  place_ += is_pair ? 2 : 1;
  ++line_;
}

// Stops at the delimiter or line end behind the cell.
std::string_view TableScanner::ReadCell(TableRow& row) {
  const bool takes_rest = row.cells_.size() + 1 == TableRow::kMostCells;
  std::size_t start = place_;
  while (start < text_.size() && text_[start] != delimiter_ && IsCellBlank(text_[start])) ++start;
  const std::size_t bare_start = start;
  if (start < text_.size() && IsMarkedAsText(text_, start)) ++start;
  if (start < text_.size() && text_[start] == '"' && !takes_rest) {
    // Most cells end with their first quote.
    const std::size_t quote = FindMark(text_, start + 1, '"');
    const bool is_closed = start + 1 >= open_until_ && quote + 1 < text_.size() &&
                           text_[quote] == '"' &&
                           (text_[quote + 1] == delimiter_ || IsLineEnd(text_[quote + 1]));
    if (is_closed) {
      place_ = quote + 1;
      return BareCell(text_.data() + start + 1, text_.data() + quote);
    }
    std::string_view cell;
    if (TakeQuoted(start + 1, row, cell)) return cell;
  }
  place_ = FindMark(text_, start, takes_rest ? '\n' : delimiter_);
  return BareCell(text_.data() + bare_start, text_.data() + place_);
}

// Whether a quote before `place` closes a cell.
bool TableScanner::IsCellEnd(std::size_t& place) const noexcept {
  while (place < text_.size() && text_[place] != delimiter_ && IsCellBlank(text_[place])) ++place;
  return place == text_.size() || text_[place] == delimiter_ || IsLineEnd(text_[place]);
}

// The cell whose text begins at `start`, behind its quote; false when no quote closes it.
bool TableScanner::TakeQuoted(std::size_t start, TableRow& row, std::string_view& cell) {
  std::size_t place = start;
  std::size_t lines = 0;
  bool is_plain = true;
  // Where nothing was found to close a cell, only a twin that follows at once is looked for.
  const bool is_known_open = start < open_until_;
  for (; (place = FindMark(text_, place, '"')) < text_.size(); ++place) {
    if (is_known_open && place > start) break;
    const char character = text_[place];
    if (character == '"') {
      if (place + 1 < text_.size() && text_[place + 1] == '"') {
        is_plain = false;
        ++place;
        continue;
      }
      std::size_t behind = place + 1;
      if (IsCellEnd(behind)) {
        place_ = behind;
        line_ += lines;
        cell = BareCell(text_.data() + start, text_.data() + place);
        if (!is_plain) {
          cell = row.unquoted_.emplace_front(WithoutTwins(cell));
          const bool is_marked = cell.size() > 2 && IsMarkedAsText(cell, 0) && cell.back() == '"';
          if (is_marked) cell = cell.substr(2, cell.size() - 3);
        }
        return true;
      }
      // In the first line it may be a quote within the text; below it is another cell's.
      if (lines > 0) break;
    } else if (IsLineEnd(character)) {
      if (character == '\n' || place + 1 == text_.size() || text_[place + 1] != '\n') ++lines;
      if (lines > kMostLines) break;
    }
  }
  open_until_ = std::max(open_until_, place);
  return false;
}

TableRows FirstRows(std::string_view text, char delimiter, std::size_t most) {
  TableRows rows;
  TableScanner scanner(text, delimiter);
  for (TableRow row; rows.size() < most && scanner.Next(row); row = {}) {
    rows.push_back(std::move(row));
  }
  return rows;
}

char NamedDelimiter(std::string_view text) noexcept {
  constexpr std::string_view kStart = "sep=";
  if (text.starts_with('"')) text.remove_prefix(1);
  if (!text.starts_with(kStart) || text.size() == kStart.size()) return '\0';
  const char delimiter = text[kStart.size()];
  const std::string_view behind = text.substr(kStart.size() + 1, 1);
  const bool is_line = behind.empty() || IsLineEnd(behind[0]) || behind[0] == '"';
  return is_line && !IsLineEnd(delimiter) ? delimiter : '\0';
}

}  // namespace tallyfold
