// How a summary is computed from its account's entries.

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "filters/date_ranges.h"
#include "filters/filter.h"
#include "model/account.h"
#include "model/entry_walk.h"
#include "model/packed_sort.h"
#include "platform/ambient.h"
#include "platform/clock.h"
#include "summaries/account_summary.h"
#include "summaries/subtotal_tally.h"
#include "summaries/summary_choices.h"
#include "summaries/summary_periods.h"

namespace tallyfold {
namespace {

namespace choices = summary_choices;

void Append(EntryList entries, EntryList& to) {
  if (to.empty()) {
    to = std::move(entries);
  } else {
    to.insert(to.end(), std::move_iterator(entries.begin()), std::move_iterator(entries.end()));
  }
}

// A number without a name is like both.
void AddMarkRule(LDGRFilter& filter, std::string_view category, std::int32_t which) {
  if (which != choices::kWithMark && which != choices::kWithoutMark) return;
  filter.AddRuleForCategory(category, FilterLogic::KeepMatching, FilterQualifier::On,
                            which == choices::kWithMark);
}

// In the order of LDGRAccountEntry::DateIsGreaterThan().
void SortByDate(EntryList& entries) {
  std::vector<PackedKey> keys;
  keys.reserve(entries.size());
  WalkEntries(entries, [&keys](const LDGRAccountEntry& entry) {
    keys.push_back({0, Packed(InOrder(entry.GetDate()), InOrder(entry.GetNumber())),
                    static_cast<std::uint32_t>(keys.size())});
  });
  SortPacked(keys);
  EntryList sorted;
  sorted.reserve(entries.size());
  for (const PackedKey& key : keys) sorted.push_back(std::move(entries[key.index]));
  entries = std::move(sorted);
}

// Adds up entries that come by date, and ends each period when an entry lies beyond it.
class PeriodSweep {
 public:
  PeriodSweep(const SummaryPeriods& periods, SummaryTally& tally, SummaryResult& result)
      : periods_(periods),
        tally_(tally),
        subtotals_(result.subtotals),
        leaves_out_empty_(periods.MostPeriods() > LDGRAccountSummary::kMostPeriods) {
    result.leaves_out_empty_periods = leaves_out_empty_;
    if (!leaves_out_empty_) subtotals_.reserve(static_cast<std::size_t>(periods.MostPeriods()));
  }

  void Add(const LDGRAccountEntry& entry) {
    while (!is_open_ || entry.GetDate() > last_number_) {
      End();
      // Never back, though a day number that names no day can stand for an earlier day than its
      // place in the order.
      const DaySpan& range = periods_.Range();
      Begin(leaves_out_empty_ ? std::clamp(DayCountOf(entry.GetDate()), next_day_, range.last)
                              : next_day_);
    }
    tally_.Add(entry);
  }
  void Finish() {
    End();
    while (!leaves_out_empty_ && next_day_ <= periods_.Range().last) {
      Begin(next_day_);
      End();
    }
  }

 private:
  void Begin(std::int64_t day) {
    is_open_ = true;
    period_ = periods_.PeriodOf(day);
    last_number_ = periods_.LastNumberOf(period_);
    next_day_ = period_.last + 1;
  }
  void End() {
    if (!std::exchange(is_open_, false)) return;
    PeriodSubtotals& ended = subtotals_.emplace_back(tally_.EndPeriod());
    ended.start_date = periods_.NumberOf(period_.first);
    ended.end_date = periods_.NumberOf(period_.last);
  }

  const SummaryPeriods& periods_;
  SummaryTally& tally_;
  std::vector<PeriodSubtotals>& subtotals_;
  bool leaves_out_empty_;
  bool is_open_ = false;
  DaySpan period_;
  DateNumber last_number_ = 0;
  std::int64_t next_day_ = periods_.Range().first;
};

}  // namespace

void LDGRAccountSummary::updateDateRange() {
  const auto* style = choices::WithNumber(choices::kDateRanges, date_range_style_);
  if (style == nullptr || style->number == choices::kCustom) return;
  DateRange range;
  DateRangeForMnemonic(style->mnemonic.value_or(DateMnemonic::Today), CurrentClock().LocalNow(),
                       range);
  start_date_ = NSCalendarDateToDateNumber(range.start);
  end_date_ = NSCalendarDateToDateNumber(range.end);
  if (style->mnemonic || account_ == nullptr || account_->GetEntries().empty()) return;
  // The days of entries are taken as they are stored, even those that no calendar has.
  start_date_ = account_->GetFirstEntry()->GetDate();
  if (style->number == choices::kFirstToLastEntry) end_date_ = account_->GetLastEntry()->GetDate();
}

EntryList LDGRAccountSummary::EntriesToCount() const {
  EntryList entries;
  if (account_ == nullptr) return entries;
  if (show_debits_) Append(account_->GetDebits(), entries);
  if (show_deposits_) Append(account_->GetDeposits(), entries);
  if (show_transfers_) Append(account_->GetTransfers(), entries);

  LDGRFilter filter;
  AddDateRangeRules(filter, start_date_, end_date_);
  AddMarkRule(filter, filter_category::kCleared, show_resolved_);
  AddMarkRule(filter, filter_category::kTaxDeductible, show_tax_deductible_);
  AddMarkRule(filter, filter_category::kCheck, show_checks_);
  const auto* text = choices::WithNumber(choices::kFilterTypes, filter_type_);
  if (filter_ && text != nullptr) {
    filter.AddRuleForCategory(text->category, FilterLogic::KeepMatching, FilterQualifier::Contains,
                              filter_data_);
  }
  entries = filter.Filter(std::move(entries));
  SortByDate(entries);
  return entries;
}

SummaryResult LDGRAccountSummary::Summary() {
  updateDateRange();
  setEntries(EntriesToCount());
  SummaryResult result = SubtotalPeriods(
      entries_, static_cast<SummaryPeriodStyle>(subtotal_period_style_), start_date_, end_date_);
  if (account_ != nullptr) {
    result.start_balance = account_->GetRunningBalanceBeforeDate(start_date_);
    result.end_balance = account_->GetRunningBalanceThroughDate(end_date_);
  }
  return result;
}

PeriodSubtotals LDGRAccountSummary::SubtotalEntries(const EntryList& entries, DateNumber start,
                                                    DateNumber end) const {
  EntryList dated;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(dated),
               [start, end](const auto& entry) {
                 return start <= entry->GetDate() && entry->GetDate() <= end;
               });
  return SubtotalPeriods(dated, SummaryPeriodStyle::Whole, start, end).whole;
}

SummaryResult LDGRAccountSummary::SubtotalPeriods(const EntryList& entries,
                                                  SummaryPeriodStyle style, DateNumber start,
                                                  DateNumber end) const {
  SummaryResult result;
  const SummaryPeriods periods(style, start, end);
  SummaryTally tally({subtotal_types_, subtotal_descriptions_, subtotal_to_froms_}, account_);
  PeriodSweep sweep(periods, tally, result);
  WalkEntryTexts(entries, [&sweep](const LDGRAccountEntry& entry) { sweep.Add(entry); });
  sweep.Finish();
  result.whole = tally.TakeWhole();
  result.whole.start_date = start;
  result.whole.end_date = end;
  return result;
}

}  // namespace tallyfold
