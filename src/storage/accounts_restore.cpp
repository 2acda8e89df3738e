#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/ambient.h"
#include "platform/message.h"
#include "platform/system_log.h"
#include "storage/accounts_store.h"
#include "storage/backup_names.h"
#include "storage/compressed_file.h"
#include "storage/content_mark.h"
#include "storage/told_reading.h"

namespace tallyfold {

namespace {

// More than any household's accounts; a damaged file must not fill the memory.
constexpr std::size_t kGreatestBackup = std::size_t{2} << 30;

// Takes no lines.
class Silence final : public SystemLog {
 public:
  void Write(std::string_view /*line*/) override {}
};

}  // namespace

std::vector<BackupFile> AccountsStore::Backups() const {
  const FileSystem& files = services_.files;
  std::vector<BackupFile> backups = BackupsNewestFirst(files, paths_.backup_folder);
  const auto first_kept = static_cast<std::ptrdiff_t>(backups.size());
  for (BackupFile& file : BackupsNewestFirst(files, paths_.data_folder)) {
    if (IsKeptCopyName(file.name, FileName(paths_.accounts_file))) {
      backups.push_back(std::move(file));
    }
  }
  std::inplace_merge(backups.begin(), backups.begin() + first_kept, backups.end(), IsNewer);
  return backups;
}

std::optional<AccountsStore::Backup> AccountsStore::ReadBackup(const std::string& name) const {
  // A name, not a path out of the folder.
  if (name.find('/') != std::string::npos) return std::nullopt;
  auto file = services_.files.Read(paths_.backup_folder + '/' + name);
  if (!file && IsKeptCopyName(name, FileName(paths_.accounts_file))) {
    file = services_.files.Read(paths_.data_folder + '/' + name);
  }
  return TakeBackup(file);
}

std::optional<AccountsStore::Backup> AccountsStore::TakeBackup(
    const std::optional<FileContents>& file) {
  if (!file) return std::nullopt;
  Backup backup;
  if (IsCompressed(file->view())) {
    auto uncompressed = Uncompress(file->view(), kGreatestBackup);
    if (!uncompressed) return std::nullopt;
    backup.content = std::move(*uncompressed);
  } else {
    backup.content = file->view();
  }
  backup.dictionary = ReadTellingProgress(backup.content).value.DictionaryValue();
  if (!backup.dictionary.Get("accounts").IsArray() || HasNewerAccount(backup.dictionary)) {
    return std::nullopt;
  }
  return backup;
}

std::optional<AccountsStore::BackupContents> AccountsStore::ContentsOfBackup(
    const std::string& name) const {
  const auto backup = ReadBackup(name);
  if (!backup) return std::nullopt;
  BackupContents contents;
  for (const plist::Value& account : backup->dictionary.Get("accounts").ArrayValue()) {
    if (!account.IsDictionary()) continue;
    ++contents.accounts;
    for (const plist::Value& entry : account.DictionaryValue().Get("entries").ArrayValue()) {
      if (entry.IsDictionary()) ++contents.entries;
    }
  }
  return contents;
}

std::optional<AccountsStore::AccountsOfFile> AccountsStore::AccountsOfBackup(
    const std::string& name) const {
  auto backup = ReadBackup(name);
  if (!backup) return std::nullopt;
  Silence silence;
  const ScopedAmbient quiet({.log = &silence});
  AccountsOfFile content;
  content.password = backup->dictionary.Get("password").StringValue();
  plist::Array dictionaries = backup->dictionary.Get("accounts").ArrayValue();
  for (std::size_t i = 0; i < dictionaries.size(); ++i) {
    if (!dictionaries.At(i).IsDictionary()) continue;
    content.accounts.push_back(LDGRAccount::accountByConsuming(
        LDGRAccount::UpdateAccountDictionary(dictionaries.Take(i).DictionaryValue())));
  }
  return content;
}

AccountsStore::RestoreResult AccountsStore::Accounts_RestoreBackup(const std::string& name) {
  if (!authenticated_) return RestoreResult::Failed;
  return Restore(ReadBackup(name),
                 Message("The accounts of the backup \"{1}\" will take the place of the accounts "
                         "you have now.  A copy of your present Accounts file will be kept beside "
                         "it.\n\nAre you sure you would like to restore the backup?",
                         {name}));
}

AccountsStore::RestoreResult AccountsStore::Accounts_RestoreFromFile(const std::string& path) {
  if (!authenticated_) return RestoreResult::Failed;
  return Restore(TakeBackup(services_.files.Read(path)),
                 Message("The accounts of the file \"{1}\" will take the place of the accounts you "
                         "have now.  A copy of your present Accounts file will be kept beside "
                         "it.\n\nAre you sure you would like to restore the file?",
                         {FileName(path)}));
}

AccountsStore::RestoreResult AccountsStore::Restore(const std::optional<Backup>& backup,
                                                    std::string question) {
  restore_failure_.reset();
  if (!backup) return RestoreResult::Unreadable;
  constexpr std::size_t kRestore = 1;
  const std::size_t answer =
      services_.alerts.Run({LocalizedText("Restore Backup?"),
                            std::move(question),
                            {LocalizedText("Cancel"), LocalizedText("Restore")}});
  if (answer != kRestore) return RestoreResult::Declined;

  if (!Accounts_Save()) {
    restore_failure_ = save_failure_;
    return RestoreResult::Failed;
  }
  const auto produce = [&backup](ByteSink& sink) { sink.Append(backup->content); };
  const auto will_replace = [this](const ContentMark& content) {
    if (witness_ != nullptr) witness_->WillReplace(content);
  };
  if (!file_.KeepCopy() || !file_.Replace(produce, will_replace)) {
    restore_failure_ = file_.Failure();
    return RestoreResult::Failed;
  }
  if (witness_ != nullptr) witness_->Replaced();
  return Accounts_Load() ? RestoreResult::Restored : RestoreResult::Ended;
}

std::optional<std::string> AccountsStore::Accounts_BackUpNow() {
  restore_failure_.reset();
  if (!authenticated_) return std::nullopt;
  if (!Accounts_Save()) {
    restore_failure_ = save_failure_;
    return std::nullopt;
  }
  const auto kept = file_.KeepCopy();
  if (!kept) {
    restore_failure_ = file_.Failure();
    return std::nullopt;
  }
  return FileName(*kept);
}

}  // namespace tallyfold
