#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/account_entry.h"
#include "summaries/summary_result.h"

namespace tallyfold {

class LDGRAccount;

// Adds up the subtotals of one kind, period after period, and of all periods together. Each name is
// looked up once for an entry, however many periods there are.
class SubtotalTally {
 public:
  void BeginPeriod() noexcept;
  // `name` must outlive the tally; `period` is the same from one BeginPeriod() to the next.
  void Add(std::string_view name, double amount, Subtotals& period);
  // Adds the period's subtotals to those under the same names in `whole`, which is always the same.
  void MergeInto(Subtotals& whole, const Subtotals& period);

 private:
  struct Place {
    std::uint64_t period = 0;  // the last period with the name, counted from 1
    std::size_t index_in_period = 0;
    std::size_t place_in_whole = 0;  // counted from 1; 0 where it has none
  };

  std::unordered_map<std::string_view, Place> places_;
  // Of the names of this period, in their order.
  std::vector<Place*> met_;
  std::uint64_t period_ = 0;
};

// Which subtotals are formed.
struct SubtotalKinds {
  bool types = false;
  bool descriptions = false;
  bool to_froms = false;
};

// Adds up entries, period after period, and all periods together.
class SummaryTally {
 public:
  // Types are looked up in the account, which may be null. It and all entries must outlive this.
  SummaryTally(const SubtotalKinds& kinds, const LDGRAccount* account);
  SummaryTally(const SummaryTally&) = delete;
  SummaryTally& operator=(const SummaryTally&) = delete;

  using Entries = std::span<const std::shared_ptr<LDGRAccountEntry>>;

  // The sums over all of `entries`; the period's days are left to the caller.
  [[nodiscard]] PeriodSubtotals Period(Entries entries);
  // Adds the sums of the last period to those of all.
  void MergeInto(PeriodSubtotals& whole, const PeriodSubtotals& period);

 private:
  void Add(const LDGRAccountEntry& entry, PeriodSubtotals& period);
  [[nodiscard]] std::string_view TypeName(const LDGRAccountEntry& entry);

  SubtotalKinds kinds_;
  const LDGRAccount* account_;
  std::string transfer_;
  std::unordered_map<std::int32_t, std::string> type_names_;
  SubtotalTally types_;
  SubtotalTally descriptions_;
  SubtotalTally to_froms_;
};

}  // namespace tallyfold
