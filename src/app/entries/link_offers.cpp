#include "app/entries/link_offers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <span>
#include <unordered_set>
#include <utility>

#include "model/amounts.h"
#include "model/date_number.h"

namespace tallyfold {
namespace {

// The account numbers that link, to be asked of many entries.
class Links {
 public:
  explicit Links(const AccountList& accounts) {
    for (const auto& account : accounts) numbers_.insert(account->GetNumber());
  }
  [[nodiscard]] bool MayBecomeHalf(const LDGRAccountEntry& entry) const {
    if (!entry.IsTransfer()) return entry.IsDebit() || entry.IsDeposit();
    return !numbers_.contains(entry.GetTransferAccount());
  }

 private:
  std::unordered_set<std::int32_t> numbers_;
};

// `amount` is rounded. To round takes its time, and few amounts come near.
bool HasAmount(const LDGRAccountEntry& entry, double amount) noexcept {
  return std::fabs(entry.GetAmount() - amount) < 0.01 && RoundedAmount(entry.GetAmount()) == amount;
}

std::int64_t DaysApart(std::int64_t a, std::int64_t b) noexcept {
  return a < b ? b - a : a - b;
}

struct DatedEntry {
  std::int64_t day;
  std::shared_ptr<LDGRAccount> account;
  std::shared_ptr<LDGRAccountEntry> entry;
};
using DatedEntries = std::vector<DatedEntry>;

void SortByDay(DatedEntries& entries) {
  std::ranges::stable_sort(entries, {}, &DatedEntry::day);
}

// Those not further away than a transfer may take.
std::span<const DatedEntry> Near(const DatedEntries& entries, std::int64_t day) {
  const auto first =
      std::ranges::lower_bound(entries, day - kMostDaysUnderWay, {}, &DatedEntry::day);
  const auto last =
      std::ranges::upper_bound(entries, day + kMostDaysUnderWay, {}, &DatedEntry::day);
  return {first, last};
}

}  // namespace

std::int64_t DaysBetween(const TransferPair& pair) noexcept {
  return DaysApart(DayCountOf(pair.entry->GetDate()), DayCountOf(pair.other->GetDate()));
}

std::vector<TransferPair> PairsFor(const AccountList& accounts,
                                   const std::shared_ptr<LDGRAccount>& account,
                                   const std::shared_ptr<LDGRAccountEntry>& entry,
                                   std::size_t most) {
  const Links links(accounts);
  const double amount = RoundedAmount(entry->GetAmount());
  if (amount == 0.0 || !links.MayBecomeHalf(*entry)) return {};
  struct Candidate {
    std::int64_t days;
    std::size_t order;
    const std::shared_ptr<LDGRAccount>* account;
    const std::shared_ptr<LDGRAccountEntry>* entry;
  };
  std::vector<Candidate> candidates;
  const std::int64_t day = DayCountOf(entry->GetDate());
  for (const auto& other_account : accounts) {
    if (other_account == account || other_account->IsLocked()) continue;
    for (const auto& other : other_account->GetEntries()) {
      if (!HasAmount(*other, -amount) || !links.MayBecomeHalf(*other)) continue;
      candidates.push_back({DaysApart(day, DayCountOf(other->GetDate())), candidates.size(),
                            &other_account, &other});
    }
  }
  const std::size_t count = std::min(most, candidates.size());
  std::ranges::partial_sort(candidates, candidates.begin() + static_cast<std::ptrdiff_t>(count), {},
                            [](const Candidate& each) { return std::pair(each.days, each.order); });
  std::vector<TransferPair> pairs;
  for (std::size_t i = 0; i < count; ++i) {
    pairs.push_back({account, entry, *candidates[i].account, *candidates[i].entry});
  }
  return pairs;
}

std::vector<TransferPair> CertainPairs(const AccountList& accounts,
                                       const std::shared_ptr<LDGRAccount>& account,
                                       const EntryList& imported) {
  const Links links(accounts);
  // By the amount of the imported half.
  std::map<double, std::pair<DatedEntries, DatedEntries>> by_amount;
  for (const auto& entry : imported) {
    const double amount = RoundedAmount(entry->GetAmount());
    if (!IsAmount(amount) || amount == 0.0 || !links.MayBecomeHalf(*entry)) continue;
    by_amount[amount].first.push_back({DayCountOf(entry->GetDate()), account, entry});
  }
  for (const auto& other_account : accounts) {
    if (other_account == account || other_account->IsLocked()) continue;
    for (const auto& other : other_account->GetEntries()) {
      // What is not a number has no place among the amounts.
      if (!IsAmount(other->GetAmount())) continue;
      const auto found = by_amount.find(-RoundedAmount(other->GetAmount()));
      if (found == by_amount.end() || !links.MayBecomeHalf(*other)) continue;
      found->second.second.push_back({DayCountOf(other->GetDate()), other_account, other});
    }
  }

  std::vector<TransferPair> pairs;
  for (auto& [amount, sides] : by_amount) {
    auto& [here, there] = sides;
    SortByDay(here);
    SortByDay(there);
    for (const DatedEntry& entry : here) {
      const auto near = Near(there, entry.day);
      if (near.size() != 1 || Near(here, near.front().day).size() != 1) continue;
      pairs.push_back({account, entry.entry, near.front().account, near.front().entry});
    }
  }
  return pairs;
}

}  // namespace tallyfold
