#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "app/accounts/account_edit_sheet_state.h"

namespace tallyfold {

class LDGRAccount;

// The table of entry types of the account sheet. Rows that are named must be there.

// Puts the account's types into the rows, active or not: those of debits before those of deposits,
// each by name; and with them the defaults and what the types are used for.
void PopulateTypes(AccountEditSheetState& state, const LDGRAccount& account);
// Gives the account the types of the rows, sorted by name, and the defaults. A type whose row is
// gone, or that was taken out of use, stays with the entries and schedules that have it, out of
// use; where there are none it goes.
void SaveTypes(const AccountEditSheetState& state, LDGRAccount& account);

// The first row that was added, renamed or brought back and has name and kind of another in use; -1
// for none.
[[nodiscard]] std::int32_t RowOfDoubleType(const AccountEditSheetState& state);

// A new type below that row, of its kind; at the end for a row that there is not. Its row.
std::size_t InsertType(AccountEditSheetState::Typed& typed, std::int32_t below, std::string name);
// A type that is out of use is no default.
void TakeTypeOutOfUse(AccountEditSheetState::Typed& typed, std::size_t row);
void BringTypeBack(AccountEditSheetState::Typed& typed, std::size_t row);
// A type of another kind is no default of its former one.
void SetKindOfType(AccountEditSheetState::Typed& typed, std::size_t row, bool is_check,
                   bool is_deposit);

}  // namespace tallyfold
