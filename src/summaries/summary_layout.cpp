#include "summaries/summary_layout.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "model/account.h"
#include "model/amounts.h"
#include "model/date_format.h"
#include "model/packed_sort.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "summaries/account_summary.h"
#include "summaries/summary_choices.h"
#include "summaries/summary_periods.h"

namespace tallyfold {
namespace {

using Amounts = SummaryLayout::Amounts;
using Block = SummaryLayout::Block;
using BlockLine = SummaryLayout::BlockLine;
using Check = SummaryLayout::Check;
using PeriodLine = SummaryLayout::PeriodLine;

constexpr std::int32_t kWithBars = 1;

std::vector<std::string> LocalizedTexts(std::initializer_list<std::string_view> keys) {
  std::vector<std::string> texts;
  for (const std::string_view key : keys) texts.push_back(LocalizedText(key));
  return texts;
}

Amounts RoundedAmounts(const PeriodSubtotals& sums) {
  return {RoundedAmount(sums.debits_total), RoundedAmount(sums.deposits_total),
          RoundedAmount(sums.transfers_total), RoundedAmount(sums.total)};
}

// How much of `whole` the part is; 0 where that has no answer, as of nothing or of an infinity.
double PartOf(double part, double whole) noexcept {
  const double share = part / whole;
  return std::isfinite(share) ? share : 0.0;
}

std::string Day(DateNumber day, std::string_view date_format) {
  return FormatDate(DateNumberToNSCalendarDate(day), date_format);
}

std::string PeriodTitle(SummaryPeriodStyle style, const PeriodSubtotals& period,
                        std::string_view date_format) {
  if (SummaryPeriods::IsCut(style) && period.start_date < SummaryPeriods::kFirstOfYear1) {
    return LocalizedText("Before the year 1");
  }
  const CivilTime first = DateNumberToNSCalendarDate(period.start_date);
  switch (style) {
    case SummaryPeriodStyle::Months:
      return FormatDate(first, "%B %Y");
    case SummaryPeriodStyle::Quarters:
      return Message("Q{1} {2}",
                     {std::to_string((first.month - 1) / 3 + 1), FormatDate(first, "%Y")});
    case SummaryPeriodStyle::Years:
      return FormatDate(first, "%Y");
    default:
      break;
  }
  const std::string start = Day(period.start_date, date_format);
  if (period.end_date == period.start_date) return start;
  return Message("{1} - {2}", {start, Day(period.end_date, date_format)});
}

void LayOutPeriods(const SummaryResult& result, SummaryPeriodStyle style,
                   std::string_view date_format, SummaryLayout& layout) {
  const bool leaves_out_empty = result.subtotals.size() > SummaryLayout::kMostPeriods;
  if (leaves_out_empty || result.leaves_out_empty_periods) {
    layout.left_out_periods = LocalizedText("Periods without entries are not shown");
  }
  std::vector<PeriodLine>& lines = layout.periods;
  if (!leaves_out_empty) lines.reserve(result.subtotals.size());
  double greatest = 0.0;
  for (const PeriodSubtotals& period : result.subtotals) {
    if (leaves_out_empty && period.count == 0) continue;
    lines.push_back({PeriodTitle(style, period, date_format), period.start_date, period.end_date,
                     period.count, RoundedAmounts(period), 0.0});
    greatest = std::max(greatest, std::abs(lines.back().amounts.total));
  }
  for (PeriodLine& line : lines) line.bar = PartOf(line.amounts.total, greatest);
}

bool ComesBefore(const BlockLine& a, const BlockLine& b) {
  // Not-a-number has a place in this order too: the last.
  const auto size_a = InOrder(std::abs(a.amount));
  const auto size_b = InOrder(std::abs(b.amount));
  if (size_a != size_b) return size_a > size_b;
  const int names = CompareIgnoringCase(a.name, b.name);
  return names != 0 ? names < 0 : a.name < b.name;
}

Block MakeBlock(std::string_view title, SummaryLayout::Subject subject,
                const Subtotals& subtotals) {
  Block block{LocalizedText(title), {}, subject};
  block.lines.reserve(subtotals.size());
  double sum = 0.0;
  for (const Subtotal& subtotal : subtotals) {
    std::string name = subtotal.name.empty() ? LocalizedText("(none)") : std::string(subtotal.name);
    block.lines.push_back({std::move(name), subtotal.count, RoundedAmount(subtotal.amount), 0.0,
                           !subtotal.name.empty()});
    sum += std::abs(block.lines.back().amount);
  }
  std::stable_sort(block.lines.begin(), block.lines.end(), ComesBefore);
  for (BlockLine& line : block.lines) line.share = PartOf(std::abs(line.amount), sum);
  return block;
}

void LayOutHead(const LDGRAccountSummary& summary, const SummaryResult& result,
                SummaryLayout& layout) {
  namespace choices = summary_choices;
  const auto* range = choices::WithNumber(choices::kDateRanges, summary.dateRangeStyle());
  if (range == nullptr) range = choices::WithNumber(choices::kDateRanges, choices::kCustom);
  layout.head.range = LocalizedText(range->name);
  layout.head.first = result.whole.start_date;
  layout.head.last = result.whole.end_date;
  layout.head.start_balance = RoundedAmount(result.start_balance);
  layout.head.end_balance = RoundedAmount(result.end_balance);
}

void LayOutTotals(const PeriodSubtotals& whole, SummaryLayout& layout) {
  layout.total_title = LocalizedText("Total");
  layout.total_count = whole.count;
  layout.total = RoundedAmounts(whole);
  const struct {
    std::string_view title;
    double amount;
  } totals[] = {{"Resolved", whole.resolved_total},
                {"Unresolved", whole.unresolved_total},
                {"Tax-Deductible", whole.tax_deductible_total},
                {"Taxable", whole.taxable_total}};
  for (const auto& [title, amount] : totals) {
    layout.totals.push_back({LocalizedText(title), RoundedAmount(amount)});
  }
}

void LayOutBlocks(const LDGRAccountSummary& summary, const PeriodSubtotals& whole,
                  SummaryLayout& layout) {
  using Subject = SummaryLayout::Subject;
  layout.block_columns = LocalizedTexts({"Name", "Count", "Amount", "Share"});
  if (summary.subtotalTypes()) {
    layout.blocks.push_back(MakeBlock("By Type", Subject::Type, whole.types_subtotals));
  }
  if (summary.subtotalDescriptions()) {
    layout.blocks.push_back(
        MakeBlock("By Description", Subject::Description, whole.descriptions_subtotals));
  }
  if (summary.subtotalToFroms()) {
    layout.blocks.push_back(MakeBlock("By To/From", Subject::ToFrom, whole.to_from_subtotals));
  }
}

void LayOutCheck(SummaryLayout& layout) {
  const SummaryLayout::Head& head = layout.head;
  if (head.last < head.first) {
    layout.check = Check::EndsBeforeItStarts;
    layout.check_title = LocalizedText("The range ends before it starts");
    return;
  }
  layout.left_out = RoundedAmount(head.end_balance - head.start_balance - layout.total.total);
  layout.check = layout.left_out == 0.0 ? Check::Agrees : Check::EntriesLeftOut;
  layout.check_title =
      LocalizedText(layout.check == Check::Agrees ? "Start balance and total give the end balance"
                                                  : "Entries left out");
}

}  // namespace

SummaryLayout LayOutSummary(const LDGRAccountSummary& summary, std::string_view date_format) {
  SummaryLayout layout;
  layout.head.name = summary.name();
  if (summary.account() != nullptr) layout.head.account = summary.account()->GetName();
  if (!summary.summaryDictionary()) return layout;

  const SummaryResult& result = *summary.summaryDictionary();
  LayOutHead(summary, result, layout);
  layout.has_bars = summary.showStyle() == kWithBars;
  layout.period_columns = LocalizedTexts({"Period", "Debits", "Deposits", "Transfers", "Total"});
  LayOutPeriods(result, static_cast<SummaryPeriodStyle>(summary.subtotalPeriodStyle()), date_format,
                layout);
  LayOutTotals(result.whole, layout);
  LayOutBlocks(summary, result.whole, layout);
  LayOutCheck(layout);
  return layout;
}

}  // namespace tallyfold
