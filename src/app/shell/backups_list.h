#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "storage/accounts_store.h"

namespace tallyfold {

class AccountSelection;
class ApplicationLock;

// A backup of the accounts file as a list shows it.
struct BackupRow {
  std::string name;
  Instant made;
  // None for one that cannot be restored.
  std::optional<AccountsStore::BackupContents> contents;
};

// The list of backups. To tell what is in one it must be read; what was read is remembered.
class BackupsList {
 public:
  // All must outlive the list.
  BackupsList(AccountsStore& store, ApplicationLock& lock, AccountSelection& selection) noexcept
      : store_(store), lock_(lock), selection_(selection) {}
  BackupsList(const BackupsList&) = delete;
  BackupsList& operator=(const BackupsList&) = delete;

  // The newest first; none while the application is locked.
  [[nodiscard]] std::vector<BackupRow> Rows();
  // As the store's; what was restored is then shown like what was launched with.
  [[nodiscard]] AccountsStore::RestoreResult Accounts_RestoreBackup(const std::string& name);

 private:
  AccountsStore& store_;
  ApplicationLock& lock_;
  AccountSelection& selection_;
  // By name. A name is not given twice, but the folder is the user's.
  struct Known {
    Instant made;
    std::optional<AccountsStore::BackupContents> contents;
  };
  std::map<std::string, Known> known_;
};

}  // namespace tallyfold
