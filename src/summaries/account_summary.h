#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "model/account_entry.h"
#include "model/date_number.h"
#include "model/field_table.h"
#include "plist/output.h"
#include "plist/value.h"
#include "summaries/summary_periods.h"
#include "summaries/summary_result.h"

namespace tallyfold {

class LDGRAccount;

// A named report over an account's entries: a range of days, which entries count, and which
// subtotals are formed; and what it came to when it was last computed. Every change of what is
// stored is noted by the account it belongs to.
class LDGRAccountSummary {
 public:
  // A new summary of the current month that counts everything.
  LDGRAccountSummary();
  // As setOptionsFromDictionary() on a new summary of that account, which may be null.
  LDGRAccountSummary(const std::optional<plist::Dictionary>& options, LDGRAccount* account);
  LDGRAccountSummary(const LDGRAccountSummary&) = delete;
  LDGRAccountSummary& operator=(const LDGRAccountSummary&) = delete;

  // The whole dictionary, Begin and End included.
  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary optionsAsDictionary() const;
  // Each missing key or value of a wrong kind is logged and leaves its option as it was.
  void setOptionsFromDictionary(const plist::Dictionary& options);

  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  // A missing value is ignored.
  void setName(std::optional<std::string_view> name);

  // How the range follows from today or the entries (see summaries/summary_choices.h); 20, and any
  // number that is no style, keeps the two days as they are.
  [[nodiscard]] std::int32_t dateRangeStyle() const noexcept { return date_range_style_; }
  void setDateRangeStyle(std::int32_t style) noexcept { Change(date_range_style_, style); }
  // Both days belong to the range.
  [[nodiscard]] DateNumber startDate() const noexcept { return start_date_; }
  void setStartDate(DateNumber date) noexcept { Change(start_date_, date); }
  [[nodiscard]] DateNumber endDate() const noexcept { return end_date_; }
  void setEndDate(DateNumber date) noexcept { Change(end_date_, date); }

  // 0 tables, 1 tables with a bar for each period.
  [[nodiscard]] std::int32_t showStyle() const noexcept { return show_style_; }
  void setShowStyle(std::int32_t style) noexcept { Change(show_style_, style); }

  // Which kinds of entries count.
  [[nodiscard]] bool showDebits() const noexcept { return show_debits_; }
  void setShowDebits(bool show) noexcept { Change(show_debits_, show); }
  [[nodiscard]] bool showDeposits() const noexcept { return show_deposits_; }
  void setShowDeposits(bool show) noexcept { Change(show_deposits_, show); }
  [[nodiscard]] bool showTransfers() const noexcept { return show_transfers_; }
  void setShowTransfers(bool show) noexcept { Change(show_transfers_, show); }
  // 0 only cleared, tax-deductible entries or checks; 1 only the others; 2 both.
  [[nodiscard]] std::int32_t showResolved() const noexcept { return show_resolved_; }
  void setShowResolved(std::int32_t which) noexcept { Change(show_resolved_, which); }
  [[nodiscard]] std::int32_t showTaxDeductible() const noexcept { return show_tax_deductible_; }
  void setShowTaxDeductible(std::int32_t which) noexcept { Change(show_tax_deductible_, which); }
  [[nodiscard]] std::int32_t showChecks() const noexcept { return show_checks_; }
  void setShowChecks(std::int32_t which) noexcept { Change(show_checks_, which); }

  // Which subtotals are formed.
  [[nodiscard]] bool subtotalDescriptions() const noexcept { return subtotal_descriptions_; }
  void setSubtotalDescriptions(bool form) noexcept { Change(subtotal_descriptions_, form); }
  [[nodiscard]] bool subtotalTypes() const noexcept { return subtotal_types_; }
  void setSubtotalTypes(bool form) noexcept { Change(subtotal_types_, form); }
  [[nodiscard]] bool subtotalToFroms() const noexcept { return subtotal_to_froms_; }
  void setSubtotalToFroms(bool form) noexcept { Change(subtotal_to_froms_, form); }
  // 0 days, 1 weeks ending on Saturday, 2 months, 3 quarters, 4 years, 5 the whole range.
  [[nodiscard]] std::int32_t subtotalPeriodStyle() const noexcept { return subtotal_period_style_; }
  void setSubtotalPeriodStyle(std::int32_t style) noexcept {
    Change(subtotal_period_style_, style);
  }

  // Whether only entries count that contain a text; where it is looked for, and the text.
  [[nodiscard]] bool filter() const noexcept { return filter_; }
  void setFilter(bool filter) noexcept { Change(filter_, filter); }
  // 0 anywhere, 1 type, 2 description, 3 to/from, 10 split description, 11 split to/from, 20 notes.
  [[nodiscard]] std::int32_t filterType() const noexcept { return filter_type_; }
  void setFilterType(std::int32_t type) noexcept { Change(filter_type_, type); }
  [[nodiscard]] const plist::Value& filterData() const noexcept { return filter_data_; }
  // Keeps a copy; a missing value is ignored.
  void setFilterData(const plist::Value& data);

  // The account summarised; null for none. Accounts set it for the summaries they hold.
  [[nodiscard]] LDGRAccount* account() const noexcept { return account_; }
  void setAccount(LDGRAccount* account) noexcept { account_ = account; }

  // Sets the two days by the style of the date range, the account's entries and today. What follows
  // from the calendar is no change of the account: looking at a summary leaves nothing to save.
  void updateDateRange();

  // Computes the summary of the account's entries: updates the date range, keeps what was counted
  // in entries(), and adds up each period. Empty without an account and for a range that ends
  // before it starts. An entry of two kinds that are both shown counts once as each of them. All
  // days before the year 1 are one period. A range of more than kMostPeriods periods goes without
  // those that have no entries. One sweep over the entries, sorted by date, beside the filter,
  // which looks types up in the current account as every filter does.
  [[nodiscard]] SummaryResult Summary();
  static constexpr std::int64_t kMostPeriods = 1'000'000;  // 2,700 years of days

  // The sums of those `entries` that are dated from `start` to `end`.
  [[nodiscard]] PeriodSubtotals SubtotalEntries(const EntryList& entries, DateNumber start,
                                                DateNumber end) const;

  // Replaces summaryDictionary() by a new Summary().
  void Refresh() { summary_dictionary_ = Summary(); }
  // What Refresh() computed last; none before.
  [[nodiscard]] const std::optional<SummaryResult>& summaryDictionary() const noexcept {
    return summary_dictionary_;
  }
  // The entries that the last Summary() counted, by date.
  [[nodiscard]] const EntryList& entries() const noexcept { return entries_; }
  void setEntries(EntryList entries) noexcept { entries_ = std::move(entries); }

  // 1, 0 or -1, ignoring case.
  [[nodiscard]] int NameIsGreaterThan(const LDGRAccountSummary& other) const noexcept;

 private:
  friend class SummaryRecords;

  template <typename T>
  void Change(T& member, T value) noexcept {
    if (member == value) return;
    member = std::move(value);
    NoteChange();
  }
  void NoteChange() noexcept;

  // The account's entries that count in the range, by date.
  [[nodiscard]] EntryList EntriesToCount() const;
  // What `entries`, all dated in the range, come to in each of its periods; in more than one, they
  // come by date. Without balances.
  [[nodiscard]] SummaryResult SubtotalPeriods(const EntryList& entries, SummaryPeriodStyle style,
                                              DateNumber start, DateNumber end) const;

  [[nodiscard]] static std::span<const Field<LDGRAccountSummary>> Fields();

  std::string name_;
  std::int32_t date_range_style_ = 20;
  DateNumber start_date_;
  DateNumber end_date_;
  std::int32_t show_style_ = 0;
  bool show_debits_ = true;
  bool show_deposits_ = true;
  bool show_transfers_ = true;
  std::int32_t show_resolved_ = 2;
  std::int32_t show_tax_deductible_ = 2;
  std::int32_t show_checks_ = 2;
  bool subtotal_descriptions_ = true;
  bool subtotal_types_ = true;
  bool subtotal_to_froms_ = true;
  std::int32_t subtotal_period_style_ = 2;
  bool filter_ = false;
  std::int32_t filter_type_ = 0;
  plist::Value filter_data_ = "";
  LDGRAccount* account_ = nullptr;
  EntryList entries_;
  std::optional<SummaryResult> summary_dictionary_;
};

}  // namespace tallyfold
