#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// The rows of a delimited text: what RFC 4180 allows and what spreadsheets and banks really write.
// Cells may be in double quotes, with line ends and doubled quotes inside. A quote in the middle of
// a cell, or one whose twin is missing, is a letter like others and ends neither cell nor line.
// Blanks around cells are dropped, and so are rows without any text. Rows may have any number of
// cells.
class TableRows {
 public:
  // No row has more cells; its last one holds the rest of the line.
  static constexpr std::size_t kMostCells = 256;
  // A cell in quotes ends within as many lines, or has none.
  static constexpr std::size_t kMostLines = 50;

  TableRows() = default;
  // Reads `text`, which must outlive the rows, up to so many of them. Linear.
  TableRows(std::string_view text, char delimiter, std::size_t most_rows = SIZE_MAX);

  [[nodiscard]] std::size_t size() const noexcept { return rows_.size(); }
  [[nodiscard]] std::size_t CellCount(std::size_t row) const noexcept {
    return EndOf(row) - rows_[row].first_cell;
  }
  // "" beyond the row's cells.
  [[nodiscard]] std::string_view Cell(std::size_t row, std::size_t column) const noexcept {
    const std::size_t place = rows_[row].first_cell + column;
    if (place >= EndOf(row)) return {};
    const Place cell = cells_[place];
    if (cell.offset == kElsewhere) return unquoted_[cell.size];
    return {rows_[row].text + cell.offset, cell.size};
  }
  // Where the row begins, from 1 on.
  [[nodiscard]] std::size_t Line(std::size_t row) const noexcept { return rows_[row].line; }

 private:
  struct Row {
    std::size_t first_cell = 0;
    std::size_t line = 0;
    const char* text = nullptr;  // what its cells' offsets count from
  };
  // Of a cell in its row; cells beyond four gigabytes are empty.
  struct Place {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
  };
  // For the offset of a cell in `unquoted_`, whose number is the size.
  static constexpr std::uint32_t kElsewhere = UINT32_MAX;
  class Scan;

  [[nodiscard]] std::size_t EndOf(std::size_t row) const noexcept {
    const Row* const each = &rows_[row];
    return each == &rows_.back() ? cells_.size() : each[1].first_cell;
  }

  std::vector<Place> cells_;
  std::vector<Row> rows_;
  // Texts of cells that do not stand in the file as they read.
  std::deque<std::string> unquoted_;
};

// A first line "sep=;" names the delimiter; '\0' without one.
[[nodiscard]] char NamedDelimiter(std::string_view text) noexcept;

}  // namespace tallyfold
