#include "app/shell/backups_list.h"

#include <utility>

#include "app/accounts/account_selection.h"
#include "app/shell/application_lock.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/backup_names.h"
#include "storage/data_paths.h"

namespace tallyfold {

std::vector<BackupRow> BackupsList::Rows() {
  std::vector<BackupRow> rows;
  if (!store_.authenticated()) return rows;
  for (BackupFile& backup : store_.Backups()) {
    const auto [known, is_new] = known_.try_emplace(backup.name);
    if (is_new || known->second.made != backup.made) {
      known->second = {backup.made, store_.ContentsOfBackup(backup.name)};
    }
    const BackupRow::Kind kind = KindOf(backup.name);
    rows.push_back({std::move(backup.name), kind, backup.made, known->second.contents});
  }
  return rows;
}

BackupRow::Kind BackupsList::KindOf(const std::string& name) const {
  if (!IsKeptCopyName(name, FileName(store_.Paths().accounts_file))) {
    return BackupRow::Kind::Backup;
  }
  for (const auto* copies : {&store_.CopiesOfOthers(), &store_.EarlierCopiesOfOthers()}) {
    for (const std::string& path : *copies) {
      if (FileName(path) == name) return BackupRow::Kind::KeptOfOthers;
    }
  }
  return BackupRow::Kind::Kept;
}

AccountsStore::RestoreResult BackupsList::Accounts_RestoreBackup(const std::string& name) {
  const Announcer::Operation operation(announcer_);
  state_ = {};
  announcer_.Changed(Area::BackUp);
  using Result = AccountsStore::RestoreResult;
  const Result result = Loaded(store_.Accounts_RestoreBackup(name));
  if (result == Result::Unreadable) {
    state_.problem = Message("The backup \"{1}\" can no longer be read.", {name});
  } else if (result == Result::Failed) {
    state_.problem =
        ProblemAs(LocalizedText("Nothing was restored, for the accounts of now could not be kept"));
  }
  return result;
}

AccountsStore::RestoreResult BackupsList::Loaded(AccountsStore::RestoreResult result) {
  if (result != AccountsStore::RestoreResult::Restored) return result;
  sheets_.CancelOpen();
  // Nothing of the accounts before shows beside the question for the password of the backup's time.
  selection_.Account_Deselect();
  lock_.authenticated() ? selection_.Accounts_PostLoad() : lock_.authentication_Begin();
  return result;
}

std::optional<AccountsStore::RestoreResult> BackupsList::RestoreFromFile() {
  using Result = AccountsStore::RestoreResult;
  const Announcer::Operation operation(announcer_);
  const auto path = panels_.Open(
      {.title = LocalizedText("Restore From File"), .button = LocalizedText("Restore")});
  if (!path) return std::nullopt;
  state_ = {};
  announcer_.Changed(Area::BackUp);
  const Result result = Loaded(store_.Accounts_RestoreFromFile(*path));
  if (result == Result::Unreadable) {
    state_.problem =
        Message("The file \"{1}\" holds no accounts that can be read.", {FileName(*path)});
  } else if (result == Result::Failed) {
    state_.problem =
        ProblemAs(LocalizedText("Nothing was restored, for the accounts of now could not be kept"));
  }
  return result;
}

bool BackupsList::BackUpNow() {
  const Announcer::Operation operation(announcer_);
  state_ = {};
  announcer_.Changed(Area::BackUp);
  if (auto kept = store_.Accounts_BackUpNow()) {
    state_.kept = std::move(*kept);
    return true;
  }
  state_.problem = ProblemAs(LocalizedText("No backup was made"));
  return false;
}

std::string BackupsList::ProblemAs(std::string sentence) const {
  const auto& failure = store_.RestoreFailure();
  return failure ? Message("{1}: {2}", {std::move(sentence), failure->Text()}) : sentence;
}

}  // namespace tallyfold
