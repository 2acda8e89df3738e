#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "platform/alerts.h"
#include "platform/application_host.h"
#include "platform/file_system.h"
#include "platform/process_launcher.h"
#include "plist/output.h"
#include "plist/value.h"
#include "storage/backups.h"
#include "storage/content_mark.h"
#include "storage/data_folder_lock.h"
#include "storage/data_paths.h"
#include "storage/file_guard.h"
#include "storage/save_gate.h"

namespace tallyfold {

// All accounts, the application password, and the one file they live in: loading with the guards
// against files of other versions, the dated backup taken at every load, saving.
//
// Failures are quiet, as the log alone hears of misplaced folders: what could not be written stays
// in memory and HasUnsavedChanges() tells.
class AccountsStore {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // No account is selected from here on; the accounts are about to be replaced.
    virtual void ForgetSelectedAccount() = 0;
    virtual void CloseMainWindow() = 0;
  };

  enum class RestoreResult : std::uint8_t {
    Restored,
    Declined,    // by the user
    Unreadable,  // the backup is missing or holds no accounts that this version can read
    Failed,      // the application is locked, or what there is could not be saved and kept
    Ended,       // the program ends, as when Accounts_Load() returns false
  };

  // Is told of saves to the accounts file, not of those to any other.
  class SaveWitness {
   public:
    virtual ~SaveWitness() = default;
    // The file is about to be replaced by one of that content, which may still fail.
    virtual void WillReplace(const ContentMark& content) = 0;
    // It was, and holds all that is in memory.
    virtual void Replaced() = 0;
  };

  // What a file of accounts holds.
  struct AccountsOfFile {
    AccountList accounts;
    std::string password;
  };

  // How much a backup holds.
  struct BackupContents {
    std::size_t accounts = 0;
    std::size_t entries = 0;
  };

  struct Services {
    FileSystem& files;
    Alerts& alerts;
    ApplicationHost& application;
    ProcessLauncher& processes;
  };

  // Everything given must outlive the store.
  AccountsStore(const Services& services, SaveGate& gate, DataFolderLock& lock, Host& host);
  AccountsStore(const AccountsStore&) = delete;
  AccountsStore& operator=(const AccountsStore&) = delete;

  // --- The accounts ---------------------------------------------------------------------------

  // False before the first load: then there is nothing to save either.
  [[nodiscard]] bool HasAccountList() const noexcept { return accounts_.has_value(); }
  // In the order of the file; empty when there is no list.
  [[nodiscard]] const AccountList& accounts() const noexcept;
  // Appends, and makes the list when there is none. Null is ignored.
  void AddAccount(std::shared_ptr<LDGRAccount> account);
  // The same at a place of the list, 0 before the first; beyond the end it appends.
  void InsertAccount(std::size_t place, std::shared_ptr<LDGRAccount> account);
  // Removes this very object; nothing when it is not here.
  void RemoveAccount(const LDGRAccount* account);
  // Makes room, so that as many accounts can be inserted without taking memory.
  void ReserveAccounts(std::size_t more);
  // Counts changes of the list itself and of the application password; see ChangeCount.
  [[nodiscard]] const ChangeCount::Revisions& ListRevisions() const noexcept {
    return list_changes_.PresentRevisions();
  }
  // Says that list and password are again as they were at `revisions`.
  void ReturnTo(const ChangeCount::Revisions& revisions) noexcept {
    list_changes_.ReturnTo(revisions);
  }
  // The first with that number, or null.
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const;
  // 0 when there are none or all are negative.
  [[nodiscard]] std::int32_t HighestAccountNumber() const noexcept;

  // The application password; "" for none.
  [[nodiscard]] const std::string& password() const noexcept;
  // None leaves it as it is. What was typed at the console before there was one is forgotten.
  void setPassword(std::optional<std::string_view> password);
  // The password becomes `password`, which gets what the password was.
  void ExchangePassword(std::string& password) noexcept;
  // Whether the password has been given, or none is needed.
  [[nodiscard]] bool authenticated() const noexcept { return authenticated_; }
  void setAuthenticated(bool authenticated) noexcept { authenticated_ = authenticated; }

  // --- The file -------------------------------------------------------------------------------

  // Replaces accounts and password by those of the file; a missing or unreadable file leaves none.
  // False when the user chose to end the program rather than to go on: the caller stops, and
  // nothing is written any more. During the load nothing but the backup is written either.
  [[nodiscard]] bool Accounts_Load();
  // Both false when nothing was written, for whatever reason.
  bool Accounts_Save();
  // Makes the folder of the accounts file and takes the lock on it, as a save does first. False
  // when that folder cannot be.
  bool PrepareDataFolder();
  // None for none. It outlives the store or is taken away.
  void SetSaveWitness(SaveWitness* witness) noexcept { witness_ = witness; }
  // The content of the accounts file as it was last loaded or saved; none when there was no file,
  // the empty mark when it could not be read.
  [[nodiscard]] const std::optional<ContentMark>& FileContent() const noexcept {
    return file_content_;
  }
  // To any file in the same form; none does nothing. A path that leads to the accounts file,
  // however it is written, is a save to that.
  bool Accounts_SaveToFilePath(const std::optional<std::string>& path);
  // Copies the file as it stands on the disk into the backup folder when a backup is due for a file
  // of this content. True when a backup was made.
  bool Accounts_Backup(const plist::Dictionary& dictionary);
  // False when the program ends because an account was written by a newer program.
  [[nodiscard]] bool Accounts_HandleModifiedByNewerTallyfold(
      const std::optional<plist::Dictionary>& dictionary);
  // False when the program ends because the user does not want older accounts upgraded.
  [[nodiscard]] bool Accounts_HandleWillBeUpgradedByTallyfold(
      const std::optional<plist::Dictionary>& dictionary);
  // Puts the backup or kept copy of that name in the place of the accounts file and loads it, after
  // asking the user. What there was before is saved, and kept beside the file.
  [[nodiscard]] RestoreResult Accounts_RestoreBackup(const std::string& name);
  // The same with a file of the user's own: any accounts file or backup, compressed or not.
  [[nodiscard]] RestoreResult Accounts_RestoreFromFile(const std::string& path);
  // Saves, then keeps a copy of the file beside it, to be listed and restored like those of files
  // that were replaced. The name of the copy; none, and RestoreFailure() says why, where either
  // fails.
  [[nodiscard]] std::optional<std::string> Accounts_BackUpNow();
  // Why the last of these three failed; none where it did not, and for a locked application.
  [[nodiscard]] const std::optional<SaveFailure>& RestoreFailure() const noexcept {
    return restore_failure_;
  }
  // Data of older versions lies where it always has: there is nothing to move.
  void Legacy_Setup() noexcept {}

  // --- What the front ends show ---------------------------------------------------------------

  // True when an account, the list of accounts or the password differs from what was last loaded
  // or saved, or the last save to the accounts file failed; no change and no file is nothing to
  // save.
  [[nodiscard]] bool HasUnsavedChanges() const;
  // Why the last save to the accounts file failed; none when it did not.
  [[nodiscard]] const std::optional<SaveFailure>& Failure() const noexcept { return save_failure_; }
  // An account was loaded from an old file with entry types that only the old preferences hold, and
  // has not been saved to the accounts file since.
  [[nodiscard]] bool HoldsUnsavedTypes() const noexcept { return holds_unsaved_types_; }
  // Set when the file that was loaded could not be used in whole.
  [[nodiscard]] const std::optional<FileSetAside>& SetAside() const noexcept {
    return file_.SetAside();
  }
  // Copies of files that were kept rather than replaced, in order.
  [[nodiscard]] const std::vector<std::string>& KeptCopies() const noexcept {
    return file_.KeptCopies();
  }
  // What kept copies hold that someone else had written, of this run and of the one before.
  [[nodiscard]] const std::vector<std::string>& CopiesOfOthers() const noexcept {
    return file_.CopiesOfOthers();
  }
  [[nodiscard]] const std::vector<std::string>& EarlierCopiesOfOthers() const noexcept {
    return file_.EarlierCopiesOfOthers();
  }
  // The backups and the kept copies of the accounts file, the newest first.
  [[nodiscard]] std::vector<BackupFile> Backups() const;
  // Reads the backup or kept copy of that name. None for one that Accounts_RestoreBackup() finds
  // unreadable.
  [[nodiscard]] std::optional<BackupContents> ContentsOfBackup(const std::string& name) const;
  // The same, with the records as a load would make them. What is damaged in it is not logged.
  [[nodiscard]] std::optional<AccountsOfFile> AccountsOfBackup(const std::string& name) const;
  [[nodiscard]] const DataPaths& Paths() const noexcept { return paths_; }

 private:
  // What the owner may do at the least with the folder and the files.
  static constexpr unsigned kOwnerAll = 0700;

  // The state that was last loaded or saved.
  struct Snapshot {
    std::uint64_t list_revision = 0;
    std::vector<std::uint64_t> account_revisions;
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
  };

  // A backup as it is to be written back, and what it holds.
  struct Backup {
    std::string content;
    plist::Dictionary dictionary;
  };
  // None for one that is missing or holds no accounts that this version can read.
  [[nodiscard]] std::optional<Backup> ReadBackup(const std::string& name) const;
  [[nodiscard]] static std::optional<Backup> TakeBackup(const std::optional<FileContents>& file);
  // Asks the question, and on agreement keeps what there is and puts the backup in its place.
  [[nodiscard]] RestoreResult Restore(const std::optional<Backup>& backup, std::string question);
  [[nodiscard]] static bool HasNewerAccount(const std::optional<plist::Dictionary>& dictionary);
  [[nodiscard]] static bool HasOlderAccount(const std::optional<plist::Dictionary>& dictionary);
  [[nodiscard]] bool Load();
  void TakeAccounts(const plist::Value& stored);
  void TakePassword(const plist::Value& password);
  void WriteTo(plist::Output& output) const;
  // None when it is written.
  [[nodiscard]] std::optional<SaveFailure> WriteFile(const std::string& path,
                                                     bool is_accounts_file);
  [[nodiscard]] Snapshot CurrentSnapshot() const;
  void EndProgram();

  Services services_;
  SaveGate& gate_;
  DataFolderLock& lock_;
  Host& host_;
  DataPaths paths_;
  FileGuard file_;
  std::optional<AccountList> accounts_;
  std::optional<std::string> password_;
  bool authenticated_ = false;
  struct ListChanges : ChangeCount {};
  ListChanges list_changes_;
  Snapshot saved_;
  bool holds_unsaved_types_ = false;
  std::optional<SaveFailure> save_failure_;
  std::optional<SaveFailure> restore_failure_;
  std::optional<ContentMark> file_content_;
  SaveWitness* witness_ = nullptr;
};

}  // namespace tallyfold
