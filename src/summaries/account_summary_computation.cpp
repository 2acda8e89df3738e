// How a summary is computed from its account's entries.

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "filters/date_ranges.h"
#include "filters/filter.h"
#include "model/account.h"
#include "model/current_account.h"
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
  for (const auto& entry : entries) {
    keys.push_back({0, Packed(InOrder(entry->GetDate()), InOrder(entry->GetNumber())),
                    static_cast<std::uint32_t>(keys.size())});
  }
  SortPacked(keys);
  EntryList sorted;
  sorted.reserve(entries.size());
  for (const PackedKey& key : keys) sorted.push_back(std::move(entries[key.index]));
  entries = std::move(sorted);
}

// Adds up each period of `entries`, which are sorted by date and lie in the range.
void AddPeriods(const SummaryPeriods& periods, const EntryList& entries, SummaryTally& tally,
                SummaryResult& result) {
  const bool leaves_out_empty = periods.MostPeriods() > LDGRAccountSummary::kMostPeriods;
  const DaySpan& range = periods.Range();
  auto entry = entries.begin();
  for (std::int64_t day = range.first; day <= range.last;) {
    if (leaves_out_empty) {
      if (entry == entries.end()) return;
      // Never back, though a day number that names no day can stand for an earlier day than its
      // place in the order.
      day = std::clamp(DayCountOf((*entry)->GetDate()), day, range.last);
    }
    const DaySpan period = periods.PeriodOf(day);
    const DateNumber last = DateNumberOfDayCount(period.last);
    // The periods part the entries by their day numbers, and the last one takes the rest, so that
    // one dated 30 February has a place too.
    const auto end = period.last == range.last
                         ? entries.end()
                         : std::find_if(entry, entries.end(), [last](const auto& each) {
                             return each->GetDate() > last;
                           });
    result.subtotals.push_back(tally.Period({entry, end}));
    result.subtotals.back().start_date = DateNumberOfDayCount(period.first);
    result.subtotals.back().end_date = last;
    tally.MergeInto(result.whole, result.subtotals.back());
    entry = end;
    day = period.last + 1;
  }
}

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
  // Filters look types up in the current account, which need not be the one summarised.
  const ScopedCurrentAccount current(account_);
  entries = filter.Filter(entries);
  SortByDate(entries);
  return entries;
}

SummaryResult LDGRAccountSummary::Summary() {
  updateDateRange();
  setEntries(EntriesToCount());

  SummaryResult result;
  const SummaryPeriods periods(static_cast<SummaryPeriodStyle>(subtotal_period_style_), start_date_,
                               end_date_);
  SummaryTally tally({subtotal_types_, subtotal_descriptions_, subtotal_to_froms_}, account_);
  AddPeriods(periods, entries_, tally, result);
  result.whole.start_date = start_date_;
  result.whole.end_date = end_date_;
  if (account_ != nullptr) {
    result.start_balance = account_->GetRunningBalanceBeforeDate(start_date_);
    result.end_balance = account_->GetRunningBalanceThroughDate(end_date_);
  }
  return result;
}

PeriodSubtotals LDGRAccountSummary::SubtotalEntries(const EntryList& entries, DateNumber start,
                                                    DateNumber end) const {
  EntryList dated;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(dated), [&](const auto& entry) {
    return start <= entry->GetDate() && entry->GetDate() <= end;
  });
  SummaryTally tally({subtotal_types_, subtotal_descriptions_, subtotal_to_froms_}, account_);
  PeriodSubtotals period = tally.Period(dated);
  period.start_date = start;
  period.end_date = end;
  return period;
}

}  // namespace tallyfold
