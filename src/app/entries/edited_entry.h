#pragma once

#include <memory>
#include <string>

#include "model/account_entry.h"
#include "model/entry_type.h"

namespace tallyfold {

class LDGRAccount;

// Whose entry is edited, where that is not the selected account.
class EntryOwner {
 public:
  virtual ~EntryOwner() = default;
  // Why the entry cannot be stored any more, in the user's words; "" when it can.
  [[nodiscard]] virtual std::string CheckEdited(const LDGRAccountEntry& entry) const = 0;
  // What was typed stands in the entry now.
  virtual void TakeEdited(LDGRAccountEntry& entry) = 0;
};

// The entry that a sheet was opened for last. It stays until the next sheet opens.
struct EditedEntry {
  std::shared_ptr<LDGRAccountEntry> entry;
  // Not in the account before OK.
  bool is_new = false;
  // The account that was selected when the sheet opened, or that the entry was ordered for.
  std::weak_ptr<LDGRAccount> account;
  // Null for an entry of the account. Otherwise the account lends its types and texts to the sheet
  // and is not changed.
  EntryOwner* owner = nullptr;
  // Types the sheet offers beside those of the account.
  EntryTypeList more_types = {};
  // Whether the account need not be the selected one.
  bool is_for_any_account = false;
};

}  // namespace tallyfold
