#include <algorithm>

#include "model/account.h"
#include "model/text.h"

namespace tallyfold {
namespace {

using EntryOrder = int (LDGRAccountEntry::*)(const LDGRAccountEntry&) const;

struct SortKey {
  EntryOrder ascending;
  EntryOrder descending;
};

// By the number that SortBy() takes.
constexpr SortKey kSortKeys[] = {
    {&LDGRAccountEntry::CheckNumberIsGreaterThan,
     &LDGRAccountEntry::CheckNumberIsGreaterThan_Reversed},
    {&LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan,
     &LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan_Reversed},
    {&LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan,
     &LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan_Reversed},
    {&LDGRAccountEntry::DescriptionIsGreaterThan,
     &LDGRAccountEntry::DescriptionIsGreaterThan_Reversed},
    {&LDGRAccountEntry::AmountIsGreaterThan, &LDGRAccountEntry::AmountIsGreaterThan_Reversed},
    {&LDGRAccountEntry::ClearedIsGreaterThan, &LDGRAccountEntry::ClearedIsGreaterThan_Reversed},
    {&LDGRAccountEntry::ToFromIsGreaterThan, &LDGRAccountEntry::ToFromIsGreaterThan_Reversed},
};

void SortStably(EntryList& entries, EntryOrder order) {
  std::stable_sort(entries.begin(), entries.end(),
                   [order](const auto& a, const auto& b) { return ((*a).*order)(*b) < 0; });
}

template <typename T>
int Compare(T a, T b) {
  return a > b ? 1 : a < b ? -1 : 0;
}

}  // namespace

void LDGRAccount::SortBy(std::int32_t key, bool descending) {
  SortStably(entries_, &LDGRAccountEntry::NumberIsGreaterThan);
  if (key < 0 || static_cast<std::size_t>(key) >= std::size(kSortKeys)) return;
  const SortKey& order = kSortKeys[key];
  SortStably(entries_, descending ? order.descending : order.ascending);
}

int LDGRAccount::NameIsGreaterThan(const LDGRAccount& other) const noexcept {
  return CompareIgnoringCase(name_, other.name_);
}

int LDGRAccount::NameIsGreaterThan_Reversed(const LDGRAccount& other) const noexcept {
  return -NameIsGreaterThan(other);
}

int LDGRAccount::NumberIsGreaterThan(const LDGRAccount& other) const noexcept {
  return Compare(number_, other.number_);
}

int LDGRAccount::BalanceIsGreaterThan(const LDGRAccount& other) const noexcept {
  return Compare(GetBalance(), other.GetBalance());
}

int LDGRAccount::BalanceIsGreaterThan_Reversed(const LDGRAccount& other) const noexcept {
  return -BalanceIsGreaterThan(other);
}

}  // namespace tallyfold
