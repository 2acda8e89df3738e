#pragma once

#include <memory>

namespace tallyfold {

class LDGRAccount;
class LDGRAccountEntry;

// The entry that a sheet was opened for last. It stays until the next sheet opens.
struct EditedEntry {
  std::shared_ptr<LDGRAccountEntry> entry;
  // Not in the account before OK.
  bool is_new = false;
  // The account that was selected when the sheet opened.
  std::weak_ptr<LDGRAccount> account;
};

}  // namespace tallyfold
