#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "storage/accounts_store.h"

namespace tallyfold {

// An entry that is not the same in a backup and now.
struct EntryDifference {
  enum class Kind : std::uint8_t { Added, Changed, Gone };

  Kind kind = Kind::Added;
  // Null for one that is gone.
  std::shared_ptr<const LDGRAccountEntry> now;
  // Null for one that was added.
  std::shared_ptr<const LDGRAccountEntry> then;
};

// What has become of the entries of an account since the backup.
struct AccountDifference {
  // The present name, else that of the backup.
  std::string name;
  std::int32_t number = -1;
  // What is locked now, or needs a password in the backup that nobody has given: nothing is told of
  // its entries.
  bool is_locked = false;
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t gone = 0;
  // The newest day first.
  std::vector<EntryDifference> entries;
};

struct BackupComparison {
  // The backup has an application password that is not the present one: nothing is told of it.
  bool is_locked = false;
  // Those of now in their order, then those that are in the backup alone.
  std::vector<AccountDifference> accounts;
};

// Accounts are the same by number, and so are entries within them. Linear but for sorting.
[[nodiscard]] BackupComparison CompareWithNow(const AccountsStore::AccountsOfFile& backup,
                                              const AccountList& now,
                                              const std::string& password_now);

}  // namespace tallyfold
