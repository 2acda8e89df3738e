#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "console/console.h"
#include "console/lookup.h"
#include "console/table.h"
#include "model/account_entry.h"

namespace tallyfold {
class LDGRAccount;
}

namespace tallyfold::console {

// What an entry is called in the type column: the direction of a transfer, else its type's name.
[[nodiscard]] std::string TypeText(const LDGRAccount& account, const LDGRAccountEntry& entry);
// "debit", "deposit" or "transfer"; "" for an entry of no kind.
[[nodiscard]] std::string KindText(const LDGRAccountEntry& entry);

// The columns of the register behind the name of the entry.
[[nodiscard]] std::vector<Column> RegisterColumns();
// The same behind the account, for entries of several.
[[nodiscard]] std::vector<Column> RegisterColumnsWithAccount();

// Rows of entries, whatever their accounts. The rows of an account are counted at most once.
class EntryRows {
 public:
  // The console must outlive this.
  explicit EntryRows(const Console& console) noexcept : console_(console) {}

  // What EntryNamed takes for an entry of the account.
  [[nodiscard]] std::string NameOf(const LDGRAccount& account, const LDGRAccountEntry& entry);
  // What it shows in the register columns.
  [[nodiscard]] std::vector<std::string> CellsOf(const std::shared_ptr<LDGRAccount>& account,
                                                 const std::shared_ptr<LDGRAccountEntry>& entry);

 private:
  const Console& console_;
  // Of accounts that have a number twice.
  std::unordered_map<const LDGRAccount*, EntryNames> names_;
};

// Whether a command that changes a transfer changes its other half too.
enum class OtherHalf { Changed, Unchanged };

// Shows entries that a command has made or changed: register columns behind that of the account. A
// transfer is followed by its other half where that has changed.
void ShowChangedEntries(const Console& console, const std::shared_ptr<LDGRAccount>& account,
                        const EntryList& entries, OtherHalf other_half = OtherHalf::Changed);

}  // namespace tallyfold::console
