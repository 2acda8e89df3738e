#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printing/page.h"

namespace tallyfold {

// What is to be printed, before it is cut into pages: a head that every page repeats, and tables
// below one another.

enum class PrintAlignment : std::uint8_t { Left, Right, Center };

// A column of a table. Its title is never cut.
struct PrintColumn {
  std::string title = {};
  PrintAlignment alignment = PrintAlignment::Left;
  // The texts of the column, or some that show the widest shapes: each is measured with its widest
  // digits. The column is as wide as they need, and its texts are never cut.
  std::vector<std::string> samples = {};
  // Instead, what the other columns leave is dealt out among the elastic ones by what each needs
  // (without samples, what it wants), and texts that are too long are shortened.
  bool is_elastic = false;
  // Of an elastic column, in characters of middling width: what makes it worth turning the paper,
  // and what it cannot do without.
  std::size_t wanted = 0;
  std::size_t least = 0;
  // Of one elastic column: it is made wider when the columns need less than the page has.
  bool takes_rest = false;
};

// A text in a line, aligned as its column is; one that spans several columns stands at their left.
struct PrintCell {
  // A span that goes on to the edge of the page.
  static constexpr std::size_t kToEdge = static_cast<std::size_t>(-1);

  std::size_t column = 0;
  std::string text;
  std::size_t span = 1;
};

// A filled part of a column's width, from 0 to 1.
struct PrintBar {
  std::size_t column = 0;
  double from = 0.0;
  double to = 0.0;
};

struct PrintLine {
  std::vector<PrintCell> cells = {};
  TextStyle style = TextStyle::Body;
  std::vector<PrintBar> bars = {};
};

// How much room a row takes. What its texts are does not matter for that, but for its note.
struct RowShape {
  bool has_rule_above = false;
  // The row is on one page with the one below it.
  bool is_kept_with_next = false;
  // Lines below the first.
  std::size_t details = 0;
  // Lines of running text at the end; belongs to the table.
  std::string_view note = {};
};

// Lines that are kept on one page, but for those that no page could take.
struct PrintRow {
  PrintLine line;
  std::vector<PrintLine> details = {};
};

// The rows of a table. Rows are made when their page is made, shapes beforehand for all rows: they
// must cost little. The same row always comes out the same.
class PrintRows {
 public:
  virtual ~PrintRows() = default;
  [[nodiscard]] virtual std::size_t Count() const = 0;
  // `row` is below Count(), here and below.
  [[nodiscard]] virtual RowShape ShapeOf(std::size_t row) const = 0;
  [[nodiscard]] virtual PrintRow RowAt(std::size_t row) const = 0;
  // Whether pages that go on with the table say what is carried over to them, and the line for a
  // page whose last lines before it were of `row`.
  [[nodiscard]] virtual bool CarriesOver() const { return false; }
  [[nodiscard]] virtual PrintLine LineAfter(std::size_t /*row*/) const { return {}; }
};

// A table with all that belongs to it. The title, if any, and the titles of the columns are not
// left with less than two rows at the end of a page, and stand again on each page that goes on with
// it.
struct PrintTable {
  std::string title = {};
  std::vector<PrintColumn> columns = {};
  // Not null when pages are made.
  std::shared_ptr<const PrintRows> rows = nullptr;
  // Where notes begin; they run to the edge of the page.
  std::size_t note_column = 0;
};

// A line of the head: one text at each end. The left one is shortened where they meet, the right
// one never.
struct HeadLine {
  std::string left;
  std::string right;
  TextStyle style = TextStyle::Subtitle;
};

struct PrintDocument {
  std::vector<HeadLine> head;
  // At the left of every page's last line; never shortened.
  std::string foot;
  std::vector<PrintTable> tables;
};

// Rows that are all made beforehand.
class ReadyRows final : public PrintRows {
 public:
  struct Row {
    PrintLine line;
    bool has_rule_above = false;
    bool is_kept_with_next = false;
    std::vector<PrintLine> details = {};
    std::string note = {};
  };

  explicit ReadyRows(std::vector<Row> rows) : rows_(std::move(rows)) {}

  [[nodiscard]] std::size_t Count() const override { return rows_.size(); }
  [[nodiscard]] RowShape ShapeOf(std::size_t row) const override {
    const Row& r = rows_[row];
    return {r.has_rule_above, r.is_kept_with_next, r.details.size(), r.note};
  }
  [[nodiscard]] PrintRow RowAt(std::size_t row) const override {
    return {rows_[row].line, rows_[row].details};
  }

 private:
  std::vector<Row> rows_;
};

}  // namespace tallyfold
