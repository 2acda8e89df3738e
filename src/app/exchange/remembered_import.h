#pragma once

#include <string_view>

#include "app/exchange/statement_import_state.h"

namespace tallyfold {

class LDGRAccountPreferences;

// What was chosen for the tables of a bank, in the preferences of the account: a table of its own
// whose columns are the choices, each with the word of its setting as identifier and a value.
// Settings that are left to the reader, and the account of the file, are not kept.

// Fills in what is kept under the identifier. False when nothing is. Values that mean nothing are
// passed over.
[[nodiscard]] bool RecallImport(const LDGRAccountPreferences& preferences,
                                std::string_view identifier, StatementOptionsState::Typed& typed);
// Makes no table where there is none and nothing was chosen. Columns that are none of ours stay.
void RememberImport(LDGRAccountPreferences& preferences, std::string_view identifier,
                    const StatementOptionsState::Typed& typed);

}  // namespace tallyfold
