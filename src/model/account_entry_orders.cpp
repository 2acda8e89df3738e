// The orders in which registers are sorted.

#include <cmath>
#include <string>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/current_account.h"
#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

int Compare(std::int32_t a, std::int32_t b) noexcept {
  return static_cast<int>(a > b) - static_cast<int>(a < b);
}

int CompareAmounts(double a, double b) noexcept {
  if (std::isnan(a) || std::isnan(b)) {
    return static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a));
  }
  return static_cast<int>(a > b) - static_cast<int>(a < b);
}

// Checks by their numbers, before everything else.
int CompareChecks(const LDGRAccountEntry& a, const LDGRAccountEntry& b) noexcept {
  if (a.IsCheck() != b.IsCheck()) return a.IsCheck() ? -1 : 1;
  return a.IsCheck() ? Compare(a.GetCheckNumber(), b.GetCheckNumber()) : 0;
}

int CompareTypeNames(const LDGRAccountEntry& a, const LDGRAccountEntry& b) {
  if (a.GetType() == b.GetType() && a.IsTransfer() == b.IsTransfer()) return 0;
  return CompareIgnoringCase(a.TypeNameInCurrentAccount(), b.TypeNameInCurrentAccount());
}

}  // namespace

std::string LDGRAccountEntry::TypeNameInCurrentAccount() const {
  if (const LDGRAccount* account = CurrentAccount()) {
    if (const auto type = account->AccountEntryTypeForNumber(type_)) return type->GetName();
  }
  return IsTransfer() ? LocalizedText("Transfer") : std::string();
}

int LDGRAccountEntry::NumberIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  return Compare(number_, other.number_);
}

int LDGRAccountEntry::DateIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (const int order = Compare(date_, other.date_)) return order;
  return NumberIsGreaterThan(other);
}

int LDGRAccountEntry::CheckNumberIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (const int order = CompareChecks(*this, other)) return order;
  return NumberIsGreaterThan(other);
}

int LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan(
    const LDGRAccountEntry& other) const noexcept {
  if (const int order = Compare(date_, other.date_)) return order;
  return CheckNumberIsGreaterThan(other);
}

int LDGRAccountEntry::DescriptionIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (const int order = CompareIgnoringCase(description_, other.description_)) return order;
  return NumberIsGreaterThan(other);
}

int LDGRAccountEntry::ToFromIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (const int order = CompareIgnoringCase(to_from_, other.to_from_)) return order;
  return NumberIsGreaterThan(other);
}

int LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan(const LDGRAccountEntry& other) const {
  if (const int order = CompareTypeNames(*this, other)) return order;
  return DateIsGreaterThan(other);
}

int LDGRAccountEntry::AmountIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (const int order = CompareAmounts(GetAmount(), other.GetAmount())) return order;
  return NumberIsGreaterThan(other);
}

int LDGRAccountEntry::ClearedIsGreaterThan(const LDGRAccountEntry& other) const noexcept {
  if (cleared_ != other.cleared_) return cleared_ ? 1 : -1;
  return NumberIsGreaterThan(other);
}

// The mirror of an order is its negative, whichever key decided.

int LDGRAccountEntry::NumberIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept {
  return -NumberIsGreaterThan(other);
}
int LDGRAccountEntry::DateIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept {
  return -DateIsGreaterThan(other);
}
int LDGRAccountEntry::CheckNumberIsGreaterThan_Reversed(
    const LDGRAccountEntry& other) const noexcept {
  return -CheckNumberIsGreaterThan(other);
}
int LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan_Reversed(
    const LDGRAccountEntry& other) const noexcept {
  return -DatePrimaryCheckSecondaryIsGreaterThan(other);
}
int LDGRAccountEntry::DescriptionIsGreaterThan_Reversed(
    const LDGRAccountEntry& other) const noexcept {
  return -DescriptionIsGreaterThan(other);
}
int LDGRAccountEntry::ToFromIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept {
  return -ToFromIsGreaterThan(other);
}
int LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan_Reversed(
    const LDGRAccountEntry& other) const {
  return -TypePrimaryDateSecondaryIsGreaterThan(other);
}
int LDGRAccountEntry::AmountIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept {
  return -AmountIsGreaterThan(other);
}
int LDGRAccountEntry::ClearedIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept {
  return -ClearedIsGreaterThan(other);
}

}  // namespace tallyfold
