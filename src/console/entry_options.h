#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/entries/entry_sheet_state.h"
#include "app/entries/transfer_sheet_state.h"
#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// The options that describe entries, by what takes them.
[[nodiscard]] std::span<const Option> DebitOptions();
[[nodiscard]] std::span<const Option> DepositOptions();
[[nodiscard]] std::span<const Option> TransferOptions();
// All of these together: which of them fit, the entry tells.
[[nodiscard]] std::span<const Option> EditOptions();

// Types the options given into the fields of an open sheet, as a user would, and leave the others
// as the sheet proposes them. Each throws CommandError for what the sheet has no field for.
void TypeIntoDebitSheet(Console& console, const Arguments& arguments);
void TypeIntoDepositSheet(Console& console, const Arguments& arguments);
void TypeIntoTransferSheet(Console& console, const Arguments& arguments);

// The index of the item that `name` is the title of, exactly or else ignoring case; throws
// CommandError with all the titles for none or several.
[[nodiscard]] std::int32_t ItemTitled(const std::vector<PopUpItem>& items, std::string_view name,
                                      std::string_view what);

// Reads "description|to|amount". A "|" within a text is written "\|", a backslash "\\".
[[nodiscard]] SplitRow ReadSplitRow(std::string_view text);
// What split= options describe; at most ten lines.
[[nodiscard]] SplitRows ReadSplit(const std::vector<std::string>& lines);

}  // namespace tallyfold::console
