#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "model/account_entry.h"

namespace tallyfold {

// By what a register is sorted. The numbers are those of LDGRAccount::SortBy().
enum class RegisterSortKey : std::int32_t {
  CheckNumber = 0,
  Date = 1,
  Type = 2,
  Description = 3,
  Amount = 4,
  Cleared = 5,
  ToFrom = 6,
};

// How a register is sorted.
struct RegisterOrder {
  // None: by entry number.
  std::optional<RegisterSortKey> key = RegisterSortKey::Date;
  bool descending = false;

  friend bool operator==(const RegisterOrder&, const RegisterOrder&) = default;
};

// The sort key of a column; none for a column that registers are not sorted by.
[[nodiscard]] std::optional<RegisterSortKey> SortKeyOfColumn(std::string_view identifier) noexcept;

// The order into which the key's comparison sorts the entries (see LDGRAccountEntry), stably: the
// indexes of the entries, first row first. Descending uses the reversed comparison. What is
// compared is prepared once for each entry, so that 100,000 entries are sorted in a moment. For a
// key without a name the order is that of the entries.
[[nodiscard]] std::vector<std::uint32_t> OrderOfEntries(const EntryList& entries,
                                                        const RegisterOrder& order);

// By the same order -1, 0 or 1; of two entries for which it is 0, the one that the account has
// first comes first.
[[nodiscard]] int CompareEntries(const LDGRAccountEntry& a, const LDGRAccountEntry& b,
                                 const RegisterOrder& order);

}  // namespace tallyfold
