#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyfold::console {

struct Column {
  enum class Align { Left, Right };
  // What becomes of a cell that is too long for the screen.
  enum class Long { IsCut, GoesOn };

  std::string_view title;
  // Numbers stand to the right, and are never cut.
  Align align = Align::Left;
  // The last column alone may go on in lines below.
  Long long_cell = Long::IsCut;
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
  // For people: columns of equal width, two blanks apart. Where `width` characters fit on a line (0
  // for any number), texts that are too long end in an ellipsis; what has no letter, as days and
  // amounts, is never cut, even if a line grows too long by it.
  [[nodiscard]] std::string Aligned(std::size_t width = 0) const;

 private:
  using Row = std::vector<std::string>;
  [[nodiscard]] std::vector<std::size_t> WidthsWithin(const std::vector<Row>& lines,
                                                      std::size_t width) const;
  void AppendLine(std::string& text, const Row& line, const std::vector<std::size_t>& widths) const;

  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

// Tabs, line ends and backslashes as \t \n \r \\ and every other control character as its number
// (\x1b), so that a cell is one cell and no text from a file can drive a terminal.
[[nodiscard]] std::string Escaped(std::string_view text);

// The same for a line that is no cell and that a person reads: backslashes stay as they are, and
// what ends lines or turns the direction of writing unseen is shown as its number too (\u202e), as
// are bytes that are no UTF-8.
[[nodiscard]] std::string Printable(std::string_view text);

// A page for a person: Printable, but line ends and form feeds stay.
[[nodiscard]] std::string PrintablePage(std::string_view text);

}  // namespace tallyfold::console
