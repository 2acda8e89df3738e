#include "printing/summary_document.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "printing/document_head.h"
#include "printing/facts.h"
#include "printing/figures.h"

namespace tallyfold {
namespace {

// --- Periods ------------------------------------------------------------------------------------

enum PeriodColumn : std::size_t { kPeriod, kDebits, kDeposits, kTransfers, kTotal, kBars };

// All bars begin at the same place, those of negative totals to its left.
class BarScale {
 public:
  explicit BarScale(const std::vector<SummaryLayout::PeriodLine>& periods) {
    for (const auto& period : periods) {
      least_ = std::min(least_, period.bar);
      greatest_ = std::max(greatest_, period.bar);
    }
  }
  [[nodiscard]] PrintBar BarOf(double value) const {
    return {kBars, Place(std::min(value, 0.0)), Place(std::max(value, 0.0))};
  }

 private:
  [[nodiscard]] double Place(double value) const { return (value - least_) / (greatest_ - least_); }

  double least_ = 0.0;
  double greatest_ = 0.0;
};

// The periods and below them their total. A century of days is many periods: rows are made when
// they are asked for.
class PeriodRows final : public PrintRows {
 public:
  PeriodRows(const SummaryLayout& layout, const LDGRPreferences& preferences)
      : figures_(preferences),
        periods_(layout.periods),
        has_bars_(layout.has_bars),
        scale_(layout.periods),
        total_(layout.total),
        total_title_(Counted(layout.total_count, "Total, {1} entry", "Total, {1} entries")) {}

  [[nodiscard]] std::vector<PrintColumn> Columns(const std::vector<std::string>& titles) const;

  [[nodiscard]] std::size_t Count() const override { return periods_.size() + 1; }
  [[nodiscard]] RowShape ShapeOf(std::size_t row) const override {
    return {.has_rule_above = row != 0 && row == periods_.size(),
            .is_kept_with_next = row + 1 == periods_.size()};
  }
  [[nodiscard]] PrintRow RowAt(std::size_t row) const override {
    if (row == periods_.size()) {
      PrintRow printed{AmountsLine(total_title_, total_)};
      printed.line.style = TextStyle::Strong;
      return printed;
    }
    const SummaryLayout::PeriodLine& period = periods_[row];
    PrintRow printed{AmountsLine(period.title, period.amounts)};
    if (has_bars_ && period.bar != 0.0) printed.line.bars = {scale_.BarOf(period.bar)};
    return printed;
  }

 private:
  [[nodiscard]] PrintLine AmountsLine(const std::string& title,
                                      const SummaryLayout::Amounts& amounts) const {
    return {.cells = {{kPeriod, title},
                      {kDebits, figures_.Amount(amounts.debits)},
                      {kDeposits, figures_.Amount(amounts.deposits)},
                      {kTransfers, figures_.Amount(amounts.transfers)},
                      {kTotal, figures_.Amount(amounts.total)}}};
  }

  PrintedFigures figures_;
  std::vector<SummaryLayout::PeriodLine> periods_;
  bool has_bars_;
  BarScale scale_;
  SummaryLayout::Amounts total_;
  std::string total_title_;
};

std::vector<PrintColumn> PeriodRows::Columns(const std::vector<std::string>& titles) const {
  // The days of a period are as little cut as other days.
  TextShapes periods;
  periods.Add(total_title_);
  for (const auto& period : periods_) periods.Add(period.title);
  std::vector<PrintColumn> columns = {{.samples = periods.Samples()}};
  using Amounts = SummaryLayout::Amounts;
  for (const auto member :
       {&Amounts::debits, &Amounts::deposits, &Amounts::transfers, &Amounts::total}) {
    AmountShapes shapes;
    shapes.Add(total_.*member);
    for (const auto& period : periods_) shapes.Add(period.amounts.*member);
    columns.push_back({.alignment = PrintAlignment::Right, .samples = shapes.Samples(figures_)});
  }
  for (std::size_t i = 0; i < columns.size() && i < titles.size(); ++i) {
    columns[i].title = titles[i];
  }
  if (has_bars_) columns.push_back({.is_elastic = true, .wanted = 16, .least = 6});
  return columns;
}

PrintTable PeriodTable(const SummaryLayout& layout, const LDGRPreferences& preferences) {
  const auto rows = std::make_shared<PeriodRows>(layout, preferences);
  return {"", rows->Columns(layout.period_columns), rows};
}

// --- Subtotals ----------------------------------------------------------------------------------

enum BlockColumn : std::size_t { kLineName, kLineCount, kLineAmount, kLineShare };

// "12.5%"
std::string Percentage(double share) {
  char text[32];
  const auto end = std::to_chars(std::begin(text), std::end(text),
                                 std::clamp(share, 0.0, 1.0) * 100, std::chars_format::fixed, 1);
  return std::string(std::begin(text), end.ptr) + '%';
}

// The same for all blocks, so that their figures stand below one another.
std::vector<PrintColumn> BlockColumns(const SummaryLayout& layout, const PrintedFigures& figures) {
  std::vector<PrintColumn> columns = {
      {.is_elastic = true, .wanted = 24, .least = 8},
      {.alignment = PrintAlignment::Right},
      {.alignment = PrintAlignment::Right},
      {.alignment = PrintAlignment::Right, .samples = {Percentage(1.0)}},
  };
  for (std::size_t i = 0; i < columns.size() && i < layout.block_columns.size(); ++i) {
    columns[i].title = layout.block_columns[i];
  }
  AmountShapes amounts;
  std::size_t most = 0;
  for (const auto& block : layout.blocks) {
    for (const auto& line : block.lines) {
      columns[kLineName].samples.push_back(line.name);
      most = std::max(most, line.count);
      amounts.Add(line.amount);
    }
  }
  columns[kLineCount].samples = {std::to_string(most)};
  columns[kLineAmount].samples = amounts.Samples(figures);
  return columns;
}

PrintTable BlockTable(const SummaryLayout::Block& block, std::vector<PrintColumn> columns,
                      const PrintedFigures& figures) {
  std::vector<ReadyRows::Row> rows;
  for (const auto& line : block.lines) {
    rows.push_back({.line = {.cells = {{kLineName, line.name},
                                       {kLineCount, std::to_string(line.count)},
                                       {kLineAmount, figures.Amount(line.amount)},
                                       {kLineShare, Percentage(line.share)}}}});
  }
  if (rows.empty()) {
    rows.push_back({.line = {.cells = {{kLineName, LocalizedText("No entries"), kLineShare + 1}}}});
  }
  return {block.title, std::move(columns), std::make_shared<ReadyRows>(std::move(rows))};
}

}  // namespace

PrintDocument SummaryDocument(const LDGRAccount& account, const SummaryLayout& layout,
                              const LDGRPreferences& preferences, DateNumber today) {
  const PrintedFigures figures(preferences);
  const SummaryLayout::Head& head = layout.head;
  PrintDocument document = DocumentOf(account, preferences, today);
  document.head.push_back(
      {head.name.substr(std::min(head.name.find_first_not_of(' '), head.name.size())),
       Message("{1}, {2} – {3}", {head.range, figures.Date(head.first), figures.Date(head.last)})});

  const bool has_days = layout.check != SummaryLayout::Check::EndsBeforeItStarts;
  Facts balances;
  balances.Add(LocalizedText("Start balance"), figures.Amount(head.start_balance));
  if (has_days) balances.Add(layout.total_title, figures.Amount(layout.total.total));
  if (layout.check == SummaryLayout::Check::EntriesLeftOut) {
    balances.Add(layout.check_title, figures.Amount(layout.left_out));
  }
  const std::string end_balance = figures.Amount(head.end_balance);
  if (has_days) {
    balances.AddResult(LocalizedText("End balance"), end_balance);
  } else {
    // Nothing adds up to it.
    balances.Add(LocalizedText("End balance"), end_balance);
  }
  document.tables.push_back(balances.Table(""));

  document.tables.push_back(PeriodTable(layout, preferences));
  if (!layout.left_out_periods.empty()) {
    Facts left_out;
    left_out.Add(layout.left_out_periods, "");
    document.tables.push_back(left_out.Table(""));
  }

  Facts totals;
  for (const auto& total : layout.totals) totals.Add(total.title, figures.Amount(total.amount));
  if (!layout.totals.empty()) document.tables.push_back(totals.Table(""));

  const std::vector<PrintColumn> columns = BlockColumns(layout, figures);
  for (const auto& block : layout.blocks) {
    document.tables.push_back(BlockTable(block, columns, figures));
  }
  if (!has_days) {
    Facts check;
    check.Add(layout.check_title, "");
    document.tables.push_back(check.Table(""));
  }
  return document;
}

}  // namespace tallyfold
