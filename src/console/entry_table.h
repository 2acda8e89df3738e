#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "console/console.h"
#include "console/table.h"
#include "model/account_entry.h"
#include "registers/register_order.h"
#include "registers/register_rows.h"
#include "storage/preferences.h"

namespace tallyfold {
class LDGRAccount;
}

namespace tallyfold::console {

// What an entry is called in the type column: the direction of a transfer, else its type's name.
[[nodiscard]] std::string TypeText(const LDGRAccount& account, const LDGRAccountEntry& entry);
// "debit", "deposit" or "transfer"; "" for an entry of no kind.
[[nodiscard]] std::string KindText(const LDGRAccountEntry& entry);

// The register columns, and what a row shows in them. `name` is what EntryNamed takes.
[[nodiscard]] std::vector<Column> RegisterColumns();
[[nodiscard]] std::vector<std::string> RegisterCells(const RegisterRows& rows, std::size_t row,
                                                     std::string name,
                                                     const LDGRPreferences& preferences);

// What EntryNamed takes for one entry of the selected account.
[[nodiscard]] std::string NameOfEntry(const LDGRAccount& account, const RegisterOrder& order,
                                      const LDGRAccountEntry& entry);

// Whether a command that changes a transfer changes its other half too.
enum class OtherHalf { Changed, Unchanged };

// Shows entries that a command has made or changed: register columns behind that of the account. A
// transfer is followed by its other half where that has changed.
void ShowChangedEntries(const Console& console, const std::shared_ptr<LDGRAccount>& account,
                        const EntryList& entries, OtherHalf other_half = OtherHalf::Changed);

}  // namespace tallyfold::console
