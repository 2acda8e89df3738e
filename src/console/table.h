#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyfold::console {

struct Column {
  enum class Align { Left, Right };

  std::string_view title;
  Align align = Align::Left;
};

// What a command answers: a header line and rows.
class Table {
 public:
  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

  // One cell for each column; missing ones are empty.
  void Add(std::vector<std::string> cells);
  [[nodiscard]] std::size_t RowCount() const noexcept { return rows_.size(); }

  // For programs: cells separated by tabs, each escaped.
  [[nodiscard]] std::string TabSeparated() const;
  // For people: columns of equal width, two blanks apart.
  [[nodiscard]] std::string Aligned() const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

// Tabs, line ends and backslashes as \t \n \r \\ and every other control character as its number
// (\x1b), so that a cell is one cell and no text from a file can drive a terminal.
[[nodiscard]] std::string Escaped(std::string_view text);

// The same for a line that is no cell: backslashes stay as they are.
[[nodiscard]] std::string Printable(std::string_view text);

}  // namespace tallyfold::console
