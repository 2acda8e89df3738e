#include <algorithm>
#include <string>
#include <utility>

#include "platform/message.h"
#include "printing/pages.h"
#include "printing/text_fitting.h"

namespace tallyfold {

// Puts the pieces of one page in their places, from the top down.
class Pages::Drawing {
 public:
  explicit Drawing(const Pages& pages) : pages_(pages), y_(pages.margins_.top) {
    page_.size = pages.size_;
  }

  Page Draw(std::size_t index) {
    DrawHead();
    DrawTables(pages_.starts_[index], index + 1 < pages_.Count()
                                          ? pages_.starts_[index + 1]
                                          : Position{pages_.document_.tables.size()});
    DrawFoot(index);
    return std::move(page_);
  }

 private:
  [[nodiscard]] double Left() const { return pages_.margins_.left; }

  void DrawHead() {
    for (const HeadLine& line : pages_.document_.head) {
      DrawEnds(line);
      y_ += pages_.metric_->LineHeight(line.style);
    }
    if (!pages_.document_.head.empty()) AddRule(pages_.width_, RuleWeight::Heavy);
  }

  // A text at each end of the page's width.
  void DrawEnds(const HeadLine& line) {
    const TextMetric& metric = *pages_.metric_;
    std::string right = OnOneLine(line.right);
    const double right_x = pages_.width_ - metric.Width(right, line.style);
    const double gap = right.empty() ? 0.0 : metric.ColumnGap();
    AddText(Left(), Shortened(OnOneLine(line.left), right_x - gap, line.style, metric), line.style);
    AddText(Left() + right_x, std::move(right), line.style);
  }

  void DrawFoot(std::size_t index) {
    y_ = pages_.size_.height - pages_.margins_.bottom - pages_.metric_->LineHeight(TextStyle::Foot);
    DrawEnds({pages_.document_.foot, PageNumber(index + 1, pages_.Count()), TextStyle::Foot});
  }

  void DrawTables(const Position& from, const Position& to) {
    for (Position at = from; at.table < pages_.document_.tables.size(); at = {at.table + 1}) {
      const bool ends_here = at.table == to.table;
      if (ends_here && !to.GoesOn()) return;
      const PrintRows& rows = *pages_.document_.tables[at.table].rows;
      has_row_above_ = false;
      DrawTableHead(at, at.table == from.table);
      const std::size_t end = ends_here ? to.row : rows.Count();
      for (std::size_t row = at.row; row < end; ++row) {
        DrawRow({at.table, row, row == at.row ? at.line : 0}, kAllLines);
      }
      if (!ends_here) continue;
      if (to.line != 0) DrawRow({at.table, to.row, to.row == at.row ? at.line : 0}, to.line);
      return;
    }
  }

  void DrawTableHead(const Position& at, bool is_first_on_page) {
    const PrintTable& table = pages_.document_.tables[at.table];
    if (!is_first_on_page) y_ += pages_.line_;
    if (!table.title.empty()) {
      const std::string title =
          at.GoesOn() ? Message("{1} (continued)", {table.title}) : table.title;
      AddText(Left(),
              Shortened(OnOneLine(title), pages_.width_, TextStyle::Strong, *pages_.metric_),
              TextStyle::Strong);
      y_ += pages_.line_;
    }
    DrawColumnTitles(at.table);
    if (!at.GoesOn() || !table.rows->CarriesOver()) return;
    DrawLine(at.table, table.rows->LineAfter(at.line != 0 ? at.row : at.row - 1));
    has_row_above_ = true;
  }

  void DrawColumnTitles(std::size_t table) {
    const auto& columns = pages_.document_.tables[table].columns;
    bool has_titles = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].title.empty()) continue;
      AddCell(table, {i, columns[i].title}, TextStyle::ColumnTitle);
      has_titles = true;
    }
    tells_rows_apart_ = has_titles;
    if (!has_titles) return;
    y_ += pages_.metric_->LineHeight(TextStyle::ColumnTitle);
    AddRule(pages_.TableWidth(table), RuleWeight::Thin);
  }

  // The row's lines from the one at `from` to the one before `end`.
  void DrawRow(const Position& from, std::size_t end) {
    const PrintRows& rows = *pages_.document_.tables[from.table].rows;
    const RowShape shape = rows.ShapeOf(from.row);
    const PrintRow row = rows.RowAt(from.row);
    if (from.line == 0) {
      if (shape.has_rule_above) {
        AddRule(pages_.TableWidth(from.table), RuleWeight::Thin);
      } else if (has_row_above_ && tells_rows_apart_) {
        page_.rules.push_back({Left(), y_, pages_.TableWidth(from.table), RuleWeight::Hair});
      }
      DrawLine(from.table, row.line);
    }
    has_row_above_ = true;
    for (std::size_t line = std::max<std::size_t>(from.line, 1); line < end; ++line) {
      if (line > shape.details) return DrawNote(from, shape, line - 1 - shape.details, end - line);
      DrawLine(from.table, line > row.details.size() ? PrintLine() : row.details[line - 1]);
    }
  }

  void DrawNote(const Position& at, const RowShape& shape, std::size_t first, std::size_t count) {
    if (shape.note.empty()) return;
    auto& note = pages_.note_;
    if (!note || note->table != at.table || note->row != at.row) {
      note = DrawnNote{at.table, at.row, pages_.BrokenNote(at.table, shape.note)};
    }
    for (std::size_t i = first; i < note->lines.size() && i - first < count; ++i) {
      AddText(Left() + pages_.NoteX(at.table), note->lines[i], TextStyle::Italic);
      y_ += pages_.line_;
    }
  }

  void DrawLine(std::size_t table, const PrintLine& line) {
    for (const PrintCell& cell : line.cells) AddCell(table, cell, line.style);
    for (const PrintBar& bar : line.bars) {
      const PlacedColumn& column = pages_.columns_[table][bar.column];
      // Bars of neighbouring lines do not touch.
      page_.bars.push_back({Left() + column.x + bar.from * column.width,
                            y_ + pages_.line_ * kBarMargin, (bar.to - bar.from) * column.width,
                            pages_.line_ * (1 - 2 * kBarMargin)});
    }
    y_ += pages_.line_;
  }

  void AddCell(std::size_t table, const PrintCell& cell, TextStyle style) {
    if (cell.text.empty() || cell.span == 0) return;
    const PrintColumn& column = pages_.document_.tables[table].columns[cell.column];
    const PlacedColumn& first = pages_.columns_[table][cell.column];
    const double width = WidthOf(table, cell);
    std::string text = OnOneLine(cell.text);
    if (column.is_elastic || cell.span > 1) {
      text = Shortened(text, width, style, *pages_.metric_);
    }
    double x = Left() + first.x;
    if (cell.span == 1 && column.alignment != PrintAlignment::Left) {
      const double left_over = width - pages_.metric_->Width(text, style);
      x += column.alignment == PrintAlignment::Right ? left_over : left_over / 2;
    }
    AddText(x, std::move(text), style);
  }

  [[nodiscard]] double WidthOf(std::size_t table, const PrintCell& cell) const {
    const auto& columns = pages_.columns_[table];
    const double x = columns[cell.column].x;
    if (cell.span == PrintCell::kToEdge) return pages_.width_ - x;
    const PlacedColumn& last = columns[cell.column + cell.span - 1];
    return last.x + last.width - x;
  }

  void AddText(double x, std::string text, TextStyle style) {
    if (!text.empty()) page_.runs.push_back({x, y_, std::move(text), style});
  }
  void AddRule(double width, RuleWeight weight) {
    page_.rules.push_back({Left(), y_, width, weight});
    y_ += pages_.metric_->RuleHeight();
  }

  static constexpr std::size_t kAllLines = static_cast<std::size_t>(-1);
  static constexpr double kBarMargin = 0.15;

  const Pages& pages_;
  Page page_;
  double y_;
  // Of the table that is being drawn: one with titles for its columns has hair rules between rows.
  bool tells_rows_apart_ = false;
  bool has_row_above_ = false;
};

Page Pages::PageAt(std::size_t index) const {
  return Drawing(*this).Draw(index);
}

}  // namespace tallyfold
