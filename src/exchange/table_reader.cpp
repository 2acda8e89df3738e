#include "exchange/table_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>
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

}  // namespace

class TableRows::Scan {
 public:
  Scan(std::string_view text, char delimiter, TableRows& rows) noexcept
      : text_(text), delimiter_(delimiter), rows_(rows) {}

  void Run(std::size_t most_rows) {
    constexpr std::size_t kRowsMeasured = 64;
    while (place_ < text_.size() && rows_.rows_.size() < most_rows) {
      ReadRow();
      if (rows_.rows_.size() == kRowsMeasured && most_rows == SIZE_MAX) Reserve();
    }
  }

  // As much as there will be if the rows go on as they began.
  void Reserve() {
    const std::size_t times = text_.size() / place_ + 1;
    rows_.rows_.reserve(rows_.rows_.size() * times);
    rows_.cells_.reserve(rows_.cells_.size() * times);
  }

 private:
  void ReadRow() {
    const std::size_t first = rows_.cells_.size();
    const std::size_t line = line_;
    row_start_ = place_;
    bool has_text = false;
    bool is_last = false;
    while (!is_last) {
      const bool takes_rest = rows_.cells_.size() - first + 1 == kMostCells;
      const Place cell = ReadCell(takes_rest);
      has_text = has_text || cell.size > 0 || cell.offset == kElsewhere;
      rows_.cells_.push_back(cell);
      is_last = place_ == text_.size() || text_[place_] != delimiter_;
      if (!is_last) ++place_;
    }
    const char* const start = text_.data() + row_start_;
    SkipLineEnd();
    if (has_text) {
      rows_.rows_.push_back({first, line, start});
    } else {
      rows_.cells_.resize(first);
    }
  }

  [[nodiscard]] Place PlaceOf(std::size_t start, std::size_t end) const noexcept {
    while (start < end && IsCellBlank(text_[start])) ++start;
    while (start < end && IsCellBlank(text_[end - 1])) --end;
    if (end - row_start_ >= kElsewhere) return {};
    return {static_cast<std::uint32_t>(start - row_start_),
            static_cast<std::uint32_t>(end - start)};
  }

  void SkipLineEnd() noexcept {
    if (place_ == text_.size()) return;
    const bool is_pair =
        text_[place_] == '\r' && place_ + 1 < text_.size() && text_[place_ + 1] == '\n';
    place_ += is_pair ? 2 : 1;
    ++line_;
  }

  // Stops at the delimiter or line end behind the cell.
  Place ReadCell(bool takes_rest) {
    std::size_t start = place_;
    while (start < text_.size() && text_[start] != delimiter_ && IsCellBlank(text_[start])) {
      ++start;
    }
    if (start < text_.size() && text_[start] == '"' && !takes_rest) {
      // Most cells end with their first quote.
      const std::size_t quote = FindMark(text_, start + 1, '"');
      const bool is_closed = start + 1 >= open_until_ && quote + 1 < text_.size() &&
                             text_[quote] == '"' &&
                             (text_[quote + 1] == delimiter_ || IsLineEnd(text_[quote + 1]));
      if (is_closed) {
        place_ = quote + 1;
        return PlaceOf(start + 1, quote);
      }
      if (const auto quoted = ReadQuoted(start + 1)) return *quoted;
    }
    const std::size_t end = FindMark(text_, start, takes_rest ? '\n' : delimiter_);
    place_ = end;
    return PlaceOf(start, end);
  }

  // Whether a quote before `place` closes a cell.
  [[nodiscard]] bool IsCellEnd(std::size_t& place) const noexcept {
    while (place < text_.size() && text_[place] != delimiter_ && IsCellBlank(text_[place])) {
      ++place;
    }
    return place == text_.size() || text_[place] == delimiter_ || IsLineEnd(text_[place]);
  }

  // The cell whose text begins at `start`, behind its quote; none when no quote closes it.
  std::optional<Place> ReadQuoted(std::size_t start) {
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
          return is_plain ? PlaceOf(start, place) : Unquoted(text_.substr(start, place - start));
        }
        // In the first line it may be a quote within the text; below it is another cell's.
        if (lines > 0) break;
      } else if (IsLineEnd(character)) {
        if (character == '\n' || place + 1 == text_.size() || text_[place + 1] != '\n') ++lines;
        if (lines > kMostLines) break;
      }
    }
    open_until_ = std::max(open_until_, place);
    return std::nullopt;
  }

  Place Unquoted(std::string_view raw) {
    while (!raw.empty() && IsCellBlank(raw.front())) raw.remove_prefix(1);
    while (!raw.empty() && IsCellBlank(raw.back())) raw.remove_suffix(1);
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
      text += raw[i];
      if (raw[i] == '"' && i + 1 < raw.size() && raw[i + 1] == '"') ++i;
    }
    rows_.unquoted_.push_back(std::move(text));
    return {kElsewhere, static_cast<std::uint32_t>(rows_.unquoted_.size() - 1)};
  }

  std::string_view text_;
  char delimiter_;
  TableRows& rows_;
  std::size_t place_ = 0;
  std::size_t row_start_ = 0;
  std::size_t line_ = 1;
  std::size_t open_until_ = 0;
};

TableRows::TableRows(std::string_view text, char delimiter, std::size_t most_rows) {
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
