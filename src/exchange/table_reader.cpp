#include "exchange/table_reader.h"

#include <algorithm>
#include <optional>

namespace tallyfold {
namespace {

std::string_view Trimmed(std::string_view text) noexcept {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

bool IsLineEnd(char character) noexcept {
  return character == '\n' || character == '\r';
}

}  // namespace

class TableRows::Scan {
 public:
  Scan(std::string_view text, char delimiter, TableRows& rows) noexcept
      : text_(text), delimiter_(delimiter), rows_(rows) {}

  void Run(std::size_t most_rows) {
    while (place_ < text_.size() && rows_.rows_.size() < most_rows) ReadRow();
  }

 private:
  void ReadRow() {
    const std::size_t first = rows_.cells_.size();
    const std::size_t line = line_;
    bool has_text = false;
    bool is_last = false;
    while (!is_last) {
      const bool takes_rest = rows_.cells_.size() - first + 1 == kMostCells;
      const std::string_view cell = ReadCell(takes_rest);
      has_text = has_text || !cell.empty();
      rows_.cells_.push_back(cell);
      is_last = place_ == text_.size() || text_[place_] != delimiter_;
      if (!is_last) ++place_;
    }
    SkipLineEnd();
    if (has_text) {
      rows_.rows_.push_back({first, line});
    } else {
      rows_.cells_.resize(first);
    }
  }

  void SkipLineEnd() noexcept {
    if (place_ == text_.size()) return;
    const bool is_pair =
        text_[place_] == '\r' && place_ + 1 < text_.size() && text_[place_ + 1] == '\n';
    place_ += is_pair ? 2 : 1;
    ++line_;
  }

  // Stops at the delimiter or line end behind the cell.
  std::string_view ReadCell(bool takes_rest) {
    std::size_t start = place_;
    while (start < text_.size() && text_[start] != delimiter_ &&
           (text_[start] == ' ' || text_[start] == '\t')) {
      ++start;
    }
    if (start < text_.size() && text_[start] == '"' && !takes_rest) {
      if (const auto quoted = ReadQuoted(start + 1)) return *quoted;
    }
    std::size_t end = start;
    while (end < text_.size() && !IsLineEnd(text_[end]) &&
           (takes_rest || text_[end] != delimiter_)) {
      ++end;
    }
    place_ = end;
    return Trimmed(text_.substr(start, end - start));
  }

  // Whether a quote before `place` closes a cell.
  [[nodiscard]] bool IsCellEnd(std::size_t& place) const noexcept {
    while (place < text_.size() && text_[place] != delimiter_ &&
           (text_[place] == ' ' || text_[place] == '\t')) {
      ++place;
    }
    return place == text_.size() || text_[place] == delimiter_ || IsLineEnd(text_[place]);
  }

  // The cell whose text begins at `start`, behind its quote; none when no quote closes it.
  std::optional<std::string_view> ReadQuoted(std::size_t start) {
    std::size_t place = start;
    std::size_t lines = 0;
    bool is_plain = true;
    // Where nothing was found to close a cell, only a twin that follows at once is looked for.
    const bool is_known_open = start < open_until_;
    for (; place < text_.size(); ++place) {
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
          const std::string_view raw = text_.substr(start, place - start);
          return is_plain ? Trimmed(raw) : Unquoted(raw);
        }
        // In the first line it may be a quote within the text; below it is another cell's.
        if (lines > 0) break;
      } else if (IsLineEnd(character)) {
        if (character == '\n' || place + 1 == text_.size() || text_[place + 1] != '\n') ++lines;
        if (lines > kMostLines) break;
      }
      if (is_known_open) break;
    }
    open_until_ = std::max(open_until_, place);
    return std::nullopt;
  }

  std::string_view Unquoted(std::string_view raw) {
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
      text += raw[i];
      if (raw[i] == '"' && i + 1 < raw.size() && raw[i + 1] == '"') ++i;
    }
    rows_.unquoted_.push_back(std::move(text));
    return Trimmed(rows_.unquoted_.back());
  }

  std::string_view text_;
  char delimiter_;
  TableRows& rows_;
  std::size_t place_ = 0;
  std::size_t line_ = 1;
  std::size_t open_until_ = 0;
};

TableRows::TableRows(std::string_view text, char delimiter, std::size_t most_rows) {
  if (most_rows == SIZE_MAX) {
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const auto delimiters =
        static_cast<std::size_t>(std::count(text.begin(), text.end(), delimiter));
    rows_.reserve(lines + 1);
    cells_.reserve(lines + delimiters + 1);
  }
  Scan(text, delimiter, *this).Run(most_rows);
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
