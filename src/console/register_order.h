#pragma once

#include <optional>
#include <string_view>

#include "model/account_entry.h"
#include "registers/register_order.h"

namespace tallyfold::console {

// What the register can be printed by, separated by blanks, for help.
inline constexpr std::string_view kRegisterColumns =
    "number date check type description to/from amount cleared";

// The key of "number" (none) or of a column by its identifier or its printed name. Throws
// CommandError for any other word.
[[nodiscard]] std::optional<RegisterSortKey> ReadSortKey(std::string_view word);

// The identifier of a column for its printed name ("toFrom" for "to/from"); any other word is an
// identifier already.
[[nodiscard]] std::string_view ColumnIdentifier(std::string_view word) noexcept;

// Sorted stably.
[[nodiscard]] EntryList InOrderOf(EntryList entries, const RegisterOrder& order);

}  // namespace tallyfold::console
