#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "console/console.h"
#include "model/account_entry.h"
#include "registers/register_order.h"

namespace tallyfold {
class LDGRAccount;
}

namespace tallyfold::console {

// What the register can be printed by, separated by blanks, for help.
inline constexpr std::string_view kRegisterColumns =
    "date check type description to/from amount cleared number";

// The key of "number" (none) or of a column by its identifier or its printed name. Throws
// CommandError for any other word.
[[nodiscard]] std::optional<RegisterSortKey> ReadSortKey(std::string_view word);

// The identifier of a column for its printed name ("toFrom" for "to/from"); any other word is an
// identifier already.
[[nodiscard]] std::string_view ColumnIdentifier(std::string_view word) noexcept;

// The order that the window has for an account's register: of the selected account the one it shows
// now, of any other the one that is stored for it.
[[nodiscard]] RegisterOrder OrderInWindow(const Console& console, const LDGRAccount& account);
// All entries of the account in that order, which is what "#3" counts in.
[[nodiscard]] EntryList RowsInWindow(const Console& console, const LDGRAccount& account);

}  // namespace tallyfold::console
