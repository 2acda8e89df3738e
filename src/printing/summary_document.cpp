#include "printing/summary_document.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/amounts.h"
#include "platform/ambient.h"
#include "printing/document_head.h"
#include "printing/facts.h"
#include "printing/figures.h"

namespace tallyfold {
namespace {

// --- Periods ------------------------------------------------------------------------------------

enum PeriodColumn : std::size_t { kPeriod, kDebits, kDeposits, kTransfers, kTotal, kBars };

ReadyRows::Row AmountsRow(const std::string& title, const SummaryLayout::Amounts& amounts,
                          const PrintedFigures& figures) {
  return {.line = {.cells = {{kPeriod, title},
                             {kDebits, figures.Amount(amounts.debits)},
                             {kDeposits, figures.Amount(amounts.deposits)},
                             {kTransfers, figures.Amount(amounts.transfers)},
                             {kTotal, figures.Amount(amounts.total)}}}};
}

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

PrintTable PeriodTable(const SummaryLayout& layout, const PrintedFigures& figures) {
  PrintTable table;
  // The days of a period are as little cut as other days.
  PrintColumn& period = table.columns.emplace_back();
  const BarScale scale(layout.periods);
  std::vector<ReadyRows::Row> rows;
  for (const auto& line : layout.periods) {
    period.samples.push_back(line.title);
    rows.push_back(AmountsRow(line.title, line.amounts, figures));
    if (layout.has_bars && line.bar != 0.0) rows.back().line.bars = {scale.BarOf(line.bar)};
  }
  if (!rows.empty()) rows.back().is_kept_with_next = true;
  const std::string total =
      layout.total_title + ", " + CountInWords(layout.total_count, "entry", "entries");
  period.samples.push_back(total);
  rows.push_back(AmountsRow(total, layout.total, figures));
  rows.back().has_rule_above = true;
  rows.back().line.style = TextStyle::Strong;

  using Amounts = SummaryLayout::Amounts;
  for (const auto member :
       {&Amounts::debits, &Amounts::deposits, &Amounts::transfers, &Amounts::total}) {
    AmountShapes shapes;
    shapes.Add(layout.total.*member);
    for (const auto& line : layout.periods) shapes.Add(line.amounts.*member);
    table.columns.push_back(
        {.alignment = PrintAlignment::Right, .samples = shapes.Samples(figures)});
  }
  for (std::size_t i = 0; i < table.columns.size() && i < layout.period_columns.size(); ++i) {
    table.columns[i].title = layout.period_columns[i];
  }
  if (layout.has_bars) table.columns.push_back({.is_elastic = true, .wanted = 16, .least = 6});
  table.rows = std::make_shared<ReadyRows>(std::move(rows));
  return table;
}

// --- Subtotals ----------------------------------------------------------------------------------

enum BlockColumn : std::size_t { kName, kCount, kAmount, kShare };

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
      columns[kName].samples.push_back(line.name);
      most = std::max(most, line.count);
      amounts.Add(line.amount);
    }
  }
  columns[kCount].samples = {std::to_string(most)};
  columns[kAmount].samples = amounts.Samples(figures);
  return columns;
}

PrintTable BlockTable(const SummaryLayout::Block& block, std::vector<PrintColumn> columns,
                      const PrintedFigures& figures) {
  std::vector<ReadyRows::Row> rows;
  for (const auto& line : block.lines) {
    rows.push_back({.line = {.cells = {{kName, line.name},
                                       {kCount, std::to_string(line.count)},
                                       {kAmount, figures.Amount(line.amount)},
                                       {kShare, Percentage(line.share)}}}});
  }
  if (rows.empty()) {
    rows.push_back({.line = {.cells = {{kName, LocalizedText("No entries"), kShare + 1}}}});
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
       head.range + ", " + figures.Date(head.first) + " – " + figures.Date(head.last)});

  Facts balances;
  balances.Add(LocalizedText("Start balance"), figures.Amount(head.start_balance));
  balances.Add(layout.total_title, figures.Amount(layout.total.total));
  if (layout.check == SummaryLayout::Check::EntriesLeftOut) {
    balances.Add(layout.check_title, figures.Amount(layout.left_out));
  }
  balances.AddResult(LocalizedText("End balance"), figures.Amount(head.end_balance));
  document.tables.push_back(balances.Table(""));

  document.tables.push_back(PeriodTable(layout, figures));

  Facts totals;
  for (const auto& total : layout.totals) totals.Add(total.title, figures.Amount(total.amount));
  if (!layout.totals.empty()) document.tables.push_back(totals.Table(""));

  const std::vector<PrintColumn> columns = BlockColumns(layout, figures);
  for (const auto& block : layout.blocks) {
    document.tables.push_back(BlockTable(block, columns, figures));
  }
  if (layout.check == SummaryLayout::Check::EndsBeforeItStarts) {
    Facts check;
    check.Add(layout.check_title, "");
    document.tables.push_back(check.Table(""));
  }
  return document;
}

}  // namespace tallyfold
