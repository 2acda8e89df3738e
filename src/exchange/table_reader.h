#pragma once

#include <cstddef>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// A row of a delimited text. Its cells are parts of that text, which must outlive it, but for those
// that do not stand there as they read.
class TableRow {
 public:
  // No row has more cells; its last one holds the rest of the line.
  static constexpr std::size_t kMostCells = 256;

  TableRow() = default;
  TableRow(TableRow&&) noexcept = default;
  TableRow& operator=(TableRow&&) noexcept = default;
  TableRow(const TableRow&) = delete;
  TableRow& operator=(const TableRow&) = delete;
  ~TableRow() = default;

  [[nodiscard]] std::size_t size() const noexcept { return cells_.size(); }
  // "" beyond the row's cells.
  [[nodiscard]] std::string_view Cell(std::size_t column) const noexcept {
    return column < cells_.size() ? cells_[column] : std::string_view();
  }
  // Where the row begins: its line, from 1 on, and its first byte.
  [[nodiscard]] std::size_t Line() const noexcept { return line_; }
  [[nodiscard]] std::size_t Place() const noexcept { return place_; }

 private:
  friend class TableScanner;

  std::vector<std::string_view> cells_;
  std::forward_list<std::string> unquoted_;
  std::size_t line_ = 0;
  std::size_t place_ = 0;
};

// Reads the rows of a delimited text one after the other: what RFC 4180 allows and what
// spreadsheets and banks really write. Cells may be in double quotes, with line ends and doubled
// quotes inside, and behind "=". A quote in the middle of a cell, or one whose twin is missing, is
// a letter like others and ends neither cell nor line. Blanks around cells are dropped, and so are
// rows without any text. Rows may have any number of cells. Linear.
class TableScanner {
 public:
  // A cell in quotes ends within as many lines, or has none.
  static constexpr std::size_t kMostLines = 50;

  // Begins at `place`, which is where a row begins. `text` must outlive the rows.
  TableScanner(std::string_view text, char delimiter, std::size_t place = 0) noexcept
      : text_(text), delimiter_(delimiter), place_(place) {}

  // Fills in `row`; false when there is none any more.
  [[nodiscard]] bool Next(TableRow& row);

 private:
  void ReadRow(TableRow& row);
  [[nodiscard]] std::string_view ReadCell(TableRow& row);
  [[nodiscard]] bool IsCellEnd(std::size_t& place) const noexcept;
  [[nodiscard]] bool TakeQuoted(std::size_t start, TableRow& row, std::string_view& cell);
  void SkipLineEnd() noexcept;

  std::string_view text_;
  char delimiter_;
  std::size_t place_;
  std::size_t line_ = 1;
  // Up to here no quote closes a cell that was opened before.
  std::size_t open_until_ = 0;
};

using TableRows = std::vector<TableRow>;

// The first rows of a text, no more than so many.
[[nodiscard]] TableRows FirstRows(std::string_view text, char delimiter, std::size_t most);

// A first line "sep=;" names the delimiter; '\0' without one.
[[nodiscard]] char NamedDelimiter(std::string_view text) noexcept;

}  // namespace tallyfold
