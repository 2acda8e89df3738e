#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "printing/column_layout.h"
#include "printing/document.h"
#include "printing/page.h"
#include "printing/paper.h"
#include "printing/text_metric.h"

namespace tallyfold {

// "Page 2 of 3".
[[nodiscard]] std::string PageNumber(std::size_t number, std::size_t count);

// A document cut into pages. Where the pages begin is found at once, from the heights of the rows
// alone; each page is made when it is asked for, in any order. The same document, paper and metric
// give the same pages.
//
// Every page has the head and "Page n of m"; rows stay whole, with those they are kept with, unless
// no page could take them.
class Pages {
 public:
  enum class Problem : std::uint8_t {
    None,
    TooNarrow,  // something would be cut that must not be
    TooLow,     // the page has no room for a line of each table below its head
  };

  // The metric must outlive the pages.
  Pages(PrintDocument document, const Paper& paper, Orientation orientation,
        const TextMetric& metric);
  Pages(Pages&&) = default;

  [[nodiscard]] Problem GetProblem() const noexcept { return problem_; }
  // Of a page with its margins, so that the paper is neither too narrow nor too low.
  [[nodiscard]] PaperSize LeastSize() const noexcept { return least_size_; }

  // 0 with a problem, else at least 1.
  [[nodiscard]] std::size_t Count() const noexcept { return starts_.size(); }
  // `index`, from 0, is below Count().
  [[nodiscard]] Page PageAt(std::size_t index) const;
  // How many rows, of all tables, are begun on the pages before that one; and the page on which
  // the row of that number is begun, the last one for a row that there is not.
  [[nodiscard]] std::size_t RowsBefore(std::size_t index) const;
  [[nodiscard]] std::size_t PageOfRow(std::size_t row) const;
  // As the paper has been turned.
  [[nodiscard]] PaperSize Size() const noexcept { return size_; }

 private:
  // A line of a row of a table.
  struct Position {
    std::size_t table = 0;
    std::size_t row = 0;
    std::size_t line = 0;

    // Not the table's beginning.
    [[nodiscard]] bool GoesOn() const noexcept { return row != 0 || line != 0; }
  };
  class Cutter;
  class Drawing;

  void ChooseSize(const Paper& paper, Orientation orientation);
  void MeasureBody();
  void MeasureFoot();
  // What the last line takes where there are so many pages.
  [[nodiscard]] double FootWidth(std::size_t count) const;

  // Of what stands above the rows on a page on which the table begins or goes on.
  [[nodiscard]] double TableHeadHeight(const Position& at, bool is_first_on_page) const;
  [[nodiscard]] double RowHeight(std::size_t table, const RowShape& shape) const;
  [[nodiscard]] std::size_t LinesOf(std::size_t table, const RowShape& shape) const;
  [[nodiscard]] double TableWidth(std::size_t table) const;
  // From the left edge of the table.
  [[nodiscard]] double NoteX(std::size_t table) const;
  [[nodiscard]] std::vector<std::string> BrokenNote(std::size_t table, std::string_view note) const;

  PrintDocument document_;
  const TextMetric* metric_;
  Problem problem_ = Problem::None;
  PaperSize size_;
  PaperSize least_size_;
  std::vector<std::vector<PlacedColumn>> columns_;  // of each table
  Margins margins_;
  double width_ = 0.0;  // between the margins
  // Of the tables on a page.
  double body_top_ = 0.0;
  double body_height_ = 0.0;
  double line_ = 0.0;  // from one line of a table to the next
  std::vector<Position> starts_;

  // The lines of the note drawn last: one that runs over many pages is broken once.
  struct DrawnNote {
    std::size_t table = 0;
    std::size_t row = 0;
    std::vector<std::string> lines;
  };
  mutable std::optional<DrawnNote> note_;
};

}  // namespace tallyfold
