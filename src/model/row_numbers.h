#pragma once

#include <cstdint>
#include <optional>
#include <set>

#include "plist/value.h"

namespace tallyfold {

// Indexes of rows of a table, each once, ascending.
using RowIndexSet = std::set<std::int32_t>;

// The integer value of every element; empty for none. Negative numbers, which name no row, are left
// out. Part of the ledger's interface; the program itself numbers rows otherwise.
[[nodiscard]] RowIndexSet indexSetWithRowNumbers(const std::optional<plist::Array>& numbers);

}  // namespace tallyfold
