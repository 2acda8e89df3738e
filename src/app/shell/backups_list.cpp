#include "app/shell/backups_list.h"

#include <utility>

#include "app/accounts/account_selection.h"
#include "app/shell/application_lock.h"

namespace tallyfold {

std::vector<BackupRow> BackupsList::Rows() {
  std::vector<BackupRow> rows;
  if (!store_.authenticated()) return rows;
  for (BackupFile& backup : store_.Backups()) {
    const auto [known, is_new] = known_.try_emplace(backup.name);
    if (is_new || known->second.made != backup.made) {
      known->second = {backup.made, store_.ContentsOfBackup(backup.name)};
    }
    rows.push_back({std::move(backup.name), backup.made, known->second.contents});
  }
  return rows;
}

AccountsStore::RestoreResult BackupsList::Accounts_RestoreBackup(const std::string& name) {
  const auto result = store_.Accounts_RestoreBackup(name);
  if (result != AccountsStore::RestoreResult::Restored) return result;
  // The backup has the password of its time.
  lock_.authenticated() ? selection_.Accounts_PostLoad() : lock_.authentication_Begin();
  return result;
}

}  // namespace tallyfold
