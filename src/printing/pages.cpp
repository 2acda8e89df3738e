#include "printing/pages.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/message.h"
#include "platform/progress.h"
#include "printing/text_fitting.h"

namespace tallyfold {
namespace {

// Sums of heights miss each other by rounding errors.
constexpr double kPageTolerance = 1e-6;

// A row that no page could take is broken where at least so many of its lines fit.
constexpr std::size_t kLeastLines = 2;

bool HasColumnTitles(const PrintTable& table) {
  return std::ranges::any_of(table.columns,
                             [](const PrintColumn& column) { return !column.title.empty(); });
}

}  // namespace

std::string PageNumber(std::size_t number, std::size_t count) {
  return Message("Page {1} of {2}", {std::to_string(number), std::to_string(count)});
}

// Finds where pages begin, from the first row of the first table to the last of the last.
class Pages::Cutter {
 public:
  explicit Cutter(Pages& pages) : pages_(pages) {}

  void Cut() {
    std::size_t rows = 0;
    for (const PrintTable& table : pages_.document_.tables) rows += table.rows->Count();
    LongOperation operation(LongWork::LayingOut, rows);
    NewPage({});
    for (std::size_t table = 0; table < pages_.document_.tables.size(); ++table) CutTable(table);
    operation.Finish();
  }

 private:
  void CutTable(std::size_t table) {
    rows_ = pages_.document_.tables[table].rows.get();
    has_head_ = false;
    const std::size_t count = rows_->Count();
    if (count == 0) {
      if (!Takes({table}, 0.0)) NewPage({table});
      Take({table}, 0.0);
    }
    for (std::size_t row = 0; row < count;) {
      const std::size_t next = PlaceGroup({table, row}, count);
      LongOperation::Count(LongWork::LayingOut, next - row);
      row = next;
    }
  }

  // Rows that are kept together, from the one at `first`. The row after them.
  std::size_t PlaceGroup(const Position& first, std::size_t count) {
    double height = 0.0;
    std::size_t end = first.row;
    for (bool is_kept = true; is_kept && end < count && height <= pages_.body_height_; ++end) {
      const RowShape shape = rows_->ShapeOf(end);
      height += pages_.RowHeight(first.table, shape);
      // Below its titles a table has two rows.
      is_kept = shape.is_kept_with_next || end == 0;
    }
    if (!PlaceWhole(first, height)) {
      for (std::size_t row = first.row; row < end; ++row) PlaceRow({first.table, row});
    }
    return end;
  }

  void PlaceRow(Position at) {
    const RowShape shape = rows_->ShapeOf(at.row);
    if (PlaceWhole(at, pages_.RowHeight(at.table, shape))) return;
    const std::size_t lines = pages_.LinesOf(at.table, shape);
    while (at.line < lines) {
      const double rule = at.line == 0 && shape.has_rule_above ? pages_.metric_->RuleHeight() : 0.0;
      const double room = pages_.body_height_ - y_ - HeadHeight(at) - rule;
      auto fitting =
          static_cast<std::size_t>(std::floor(std::max(room + kPageTolerance, 0.0) / pages_.line_));
      if (fitting < kLeastLines && !is_empty_) {
        NewPage(at);
        continue;
      }
      fitting = std::clamp<std::size_t>(fitting, 1, lines - at.line);
      Take(at, rule + static_cast<double>(fitting) * pages_.line_);
      at.line += fitting;
      if (at.line < lines) NewPage(at);
    }
  }

  // On this page or the next; false where not even an empty page takes it.
  bool PlaceWhole(const Position& at, double height) {
    if (!Takes(at, height)) {
      if (pages_.TableHeadHeight(at, true) + height > pages_.body_height_ + kPageTolerance) {
        return false;
      }
      NewPage(at);
    }
    Take(at, height);
    return true;
  }

  [[nodiscard]] double HeadHeight(const Position& at) const {
    return has_head_ ? 0.0 : pages_.TableHeadHeight(at, is_empty_);
  }
  [[nodiscard]] bool Takes(const Position& at, double height) const {
    return y_ + HeadHeight(at) + height <= pages_.body_height_ + kPageTolerance;
  }
  void Take(const Position& at, double height) {
    y_ += HeadHeight(at) + height;
    has_head_ = true;
    is_empty_ = false;
  }
  void NewPage(const Position& at) {
    pages_.starts_.push_back(at);
    y_ = 0.0;
    has_head_ = false;
    is_empty_ = true;
  }

  Pages& pages_;
  const PrintRows* rows_ = nullptr;
  double y_ = 0.0;         // below the last line so far, in the body of the page
  bool has_head_ = false;  // the table has one on this page
  bool is_empty_ = true;
};

Pages::Pages(PrintDocument document, const Paper& paper, Orientation orientation,
             const TextMetric& metric)
    : document_(std::move(document)), metric_(&metric), margins_(paper.margins) {
  for (const TextStyle style : {TextStyle::Body, TextStyle::Italic, TextStyle::Strong}) {
    line_ = std::max(line_, metric.LineHeight(style));
  }
  ChooseSize(paper, orientation);
  MeasureBody();
  if (problem_ != Problem::None) return;
  Cutter(*this).Cut();
  MeasureFoot();
}

void Pages::ChooseSize(const Paper& paper, Orientation orientation) {
  std::vector<ColumnLayout> layouts;
  double least = 0.0;
  double wanted = 0.0;
  for (const PrintTable& table : document_.tables) {
    const ColumnLayout& layout = layouts.emplace_back(table.columns, *metric_);
    least = std::max(least, layout.LeastWidth());
    wanted = std::max(wanted, layout.WantedWidth());
  }
  for (const HeadLine& line : document_.head) {
    const double right = std::ceil(metric_->Width(OnOneLine(line.right), line.style));
    least = std::max(least, right);
    wanted = std::max(wanted, right);
  }
  least = std::max(least, FootWidth(1));
  const double margins = margins_.left + margins_.right;
  const bool is_turned =
      orientation == Orientation::Landscape ||
      (orientation == Orientation::Automatic && paper.portrait.width - margins < wanted &&
       paper.landscape.width > paper.portrait.width);
  size_ = is_turned ? paper.landscape : paper.portrait;
  width_ = size_.width - margins;
  least_size_.width = least + margins;
  if (width_ + kPageTolerance < least) {
    problem_ = Problem::TooNarrow;
    return;
  }
  for (const ColumnLayout& layout : layouts) columns_.push_back(layout.Placed(width_));
}

void Pages::MeasureBody() {
  body_top_ = margins_.top;
  for (const HeadLine& line : document_.head) body_top_ += metric_->LineHeight(line.style);
  if (!document_.head.empty()) body_top_ += metric_->RuleHeight();
  const double below = line_ + metric_->LineHeight(TextStyle::Foot) + margins_.bottom;
  body_height_ = size_.height - below - body_top_;

  double least = 0.0;
  for (std::size_t table = 0; table < document_.tables.size(); ++table) {
    const double head = TableHeadHeight({table, 1}, true);
    least = std::max(least, head + metric_->RuleHeight() + line_ * kLeastLines);
  }
  least_size_.height = body_top_ + least + below;
  if (problem_ == Problem::None && body_height_ + kPageTolerance < least)
    problem_ = Problem::TooLow;
}

double Pages::FootWidth(std::size_t count) const {
  const double number = WidestWidth({PageNumber(count, count)}, TextStyle::Foot, *metric_);
  if (document_.foot.empty()) return std::ceil(number);
  const double foot = metric_->Width(OnOneLine(document_.foot), TextStyle::Foot);
  return std::ceil(foot + metric_->ColumnGap() + number);
}

// How many pages there are is known last.
void Pages::MeasureFoot() {
  const double needed = FootWidth(Count());
  least_size_.width = std::max(least_size_.width, needed + margins_.left + margins_.right);
  if (width_ + kPageTolerance >= needed) return;
  problem_ = Problem::TooNarrow;
  starts_.clear();
}

std::size_t Pages::RowsBefore(std::size_t index) const {
  const Position& start = starts_[index];
  std::size_t rows = start.line != 0 ? start.row + 1 : start.row;
  for (std::size_t table = 0; table < start.table; ++table) {
    rows += document_.tables[table].rows->Count();
  }
  return rows;
}

std::size_t Pages::PageOfRow(std::size_t row) const {
  std::size_t first = 0;
  std::size_t end = Count();
  while (end - first > 1) {
    const std::size_t middle = first + (end - first) / 2;
    (RowsBefore(middle) <= row ? first : end) = middle;
  }
  return first;
}

double Pages::TableHeadHeight(const Position& at, bool is_first_on_page) const {
  const PrintTable& table = document_.tables[at.table];
  double height = is_first_on_page ? 0.0 : line_;
  if (!table.title.empty()) height += line_;
  if (HasColumnTitles(table)) {
    height += metric_->LineHeight(TextStyle::ColumnTitle) + metric_->RuleHeight();
  }
  if (at.GoesOn() && table.rows->CarriesOver()) height += line_;
  return height;
}

double Pages::RowHeight(std::size_t table, const RowShape& shape) const {
  const double rule = shape.has_rule_above ? metric_->RuleHeight() : 0.0;
  return rule + static_cast<double>(LinesOf(table, shape)) * line_;
}

std::size_t Pages::LinesOf(std::size_t table, const RowShape& shape) const {
  return 1 + shape.details + BrokenNote(table, shape.note).size();
}

double Pages::TableWidth(std::size_t table) const {
  const auto& columns = columns_[table];
  return columns.empty() ? 0.0 : columns.back().x + columns.back().width;
}

double Pages::NoteX(std::size_t table) const {
  const std::size_t column = document_.tables[table].note_column;
  return columns_[table][column].x + metric_->ColumnGap();
}

std::vector<std::string> Pages::BrokenNote(std::size_t table, std::string_view note) const {
  if (note.empty()) return {};
  return Wrapped(note, width_ - NoteX(table), TextStyle::Italic, *metric_);
}

}  // namespace tallyfold
