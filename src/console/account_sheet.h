#pragma once

#include <cstdint>
#include <string_view>

#include "app/accounts/account_edit_sheet_state.h"
#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// The account sheet, as several commands fill it.

inline constexpr Option kAccountName = {
    .name = "name", .value = "TEXT", .help = "the account's name"};
inline constexpr Option kAccountBalance = {
    .name = "balance", .value = "AMOUNT", .help = "what is in the account at the start"};
inline constexpr Option kAccountCheck = {
    .name = "check", .value = "NUMBER", .help = "the number of the first check"};

// Opens the sheet for the selected account; throws CommandError where that cannot be.
void OpenAccountSheet(const Console& console);
// Types the three options above, where given.
void TypeAccountFields(const Arguments& arguments, AccountEditSheetState::Typed& typed);
// Presses OK with these values; throws CommandError, with the reason, for those that will not do.
void FinishAccountSheet(const Console& console, AccountEditSheetState::Typed typed);

// The row of a type that `word` names: by number, or by a name that only one type has. Types in use
// are looked for, or those that are not.
[[nodiscard]] std::size_t TypeRowNamed(const AccountEditSheetState::Typed& typed,
                                       std::string_view word, bool are_active = true);

}  // namespace tallyfold::console
