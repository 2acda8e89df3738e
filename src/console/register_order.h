#pragma once

#include <string>
#include <string_view>

#include "model/account_entry.h"

namespace tallyfold::console {

// By which column the register is sorted.
struct RegisterOrder {
  std::string column = "date";
  bool descending = false;
};

// The columns a register can be sorted by, separated by blanks, for help.
inline constexpr std::string_view kRegisterColumns =
    "number date check type description to/from amount cleared";

// Whether there is such a column.
[[nodiscard]] bool IsRegisterColumn(std::string_view column);

// Sorts entries by number, then stably by the column.
void SortEntries(EntryList& entries, const RegisterOrder& order);

}  // namespace tallyfold::console
