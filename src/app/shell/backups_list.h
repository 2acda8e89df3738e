#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "platform/clock.h"
#include "platform/file_panels.h"
#include "storage/accounts_store.h"

namespace tallyfold {

class AccountSelection;
class ApplicationLock;

// A backup of the accounts file as a list shows it.
struct BackupRow {
  enum class Kind : std::uint8_t {
    Backup,
    Kept,          // a copy of what was about to be replaced
    KeptOfOthers,  // of what another program had written
  };

  std::string name;
  Kind kind = Kind::Backup;
  Instant made;
  // None for one that cannot be restored.
  std::optional<AccountsStore::BackupContents> contents;
};

// What the last order of the list came to that named no backup.
struct BackUpState {
  // The name under which the accounts were kept; "" where they were not.
  std::string kept;
  // Why not, or why no file took their place, in the user's words; "" where neither failed.
  std::string problem;
};

// The list of backups. To tell what is in one it must be read; what was read is remembered.
class BackupsList {
 public:
  // All must outlive the list.
  BackupsList(AccountsStore& store, ApplicationLock& lock, AccountSelection& selection,
              FilePanels& panels, SheetSlot& sheets, Announcer& announcer) noexcept
      : store_(store),
        lock_(lock),
        selection_(selection),
        panels_(panels),
        sheets_(sheets),
        announcer_(announcer) {}
  BackupsList(const BackupsList&) = delete;
  BackupsList& operator=(const BackupsList&) = delete;

  // The newest first; none while the application is locked.
  [[nodiscard]] std::vector<BackupRow> Rows();
  // As the store's; what was restored is then shown like what was launched with, and a sheet that
  // is open closes.
  [[nodiscard]] AccountsStore::RestoreResult Accounts_RestoreBackup(const std::string& name);
  // The same with a file that the user is asked for; none when he names none.
  std::optional<AccountsStore::RestoreResult> RestoreFromFile();
  // Saves the accounts and keeps a copy of their file, which is listed from here on.
  bool BackUpNow();
  [[nodiscard]] const BackUpState& State() const noexcept { return state_; }

 private:
  [[nodiscard]] BackupRow::Kind KindOf(const std::string& name) const;
  AccountsStore::RestoreResult Loaded(AccountsStore::RestoreResult result);
  // The sentence with the reason behind it.
  [[nodiscard]] std::string ProblemAs(std::string sentence) const;

  AccountsStore& store_;
  ApplicationLock& lock_;
  AccountSelection& selection_;
  FilePanels& panels_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  BackUpState state_;
  // By name. A name is not given twice, but the folder is the user's.
  struct Known {
    Instant made;
    std::optional<AccountsStore::BackupContents> contents;
  };
  std::map<std::string, Known> known_;
};

}  // namespace tallyfold
