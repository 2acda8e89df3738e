#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/application_host.h"
#include "platform/file_system.h"
#include "platform/process_launcher.h"
#include "plist/value.h"
#include "storage/data_paths.h"
#include "storage/file_guard.h"
#include "storage/preferences.h"
#include "storage/save_gate.h"

namespace tallyfold {

class LDGRAccount;

// A table as it is shown now, its columns in display order.
struct LiveTable {
  std::vector<LiveColumn> columns;
  std::int32_t selected_row = -1;  // -1 for none
};

// The preferences file: reading it at start with upgrade and backup, filling the preferences from
// what is shown, and saving. Puts its preferences in force as sharedPreferences.
class PreferencesStore {
 public:
  // What is shown at the moment.
  class Host {
   public:
    virtual ~Host() = default;
    // `identifier` is "entry", "reconcile" or "schedule". None where there is no such table to ask:
    // what is stored of it stays.
    [[nodiscard]] virtual std::optional<LiveTable> TableShown(std::string_view identifier) = 0;
    // The account whose tables these are; null for none.
    [[nodiscard]] virtual const LDGRAccount* AccountShown() = 0;
    [[nodiscard]] virtual std::int32_t BalanceMode() = 0;
    [[nodiscard]] virtual float AccountsDrawerWidth() = 0;
    [[nodiscard]] virtual std::int32_t AccountsDrawerPreferredEdge() = 0;
    // Whether an account has taken entry types from old preferences that are in no file but those.
    [[nodiscard]] virtual bool AccountsHoldUnsavedTypes() = 0;
  };

  struct Services {
    FileSystem& files;
    ApplicationHost& application;
    ProcessLauncher& processes;
  };

  // Everything given must outlive the store.
  PreferencesStore(const Services& services, SaveGate& gate, Host& host);
  // Preferences read here are no longer in force.
  ~PreferencesStore();
  PreferencesStore(const PreferencesStore&) = delete;
  PreferencesStore& operator=(const PreferencesStore&) = delete;

  // False before Preferences_Init(): then there is nothing to save either.
  [[nodiscard]] bool HasPreferences() const noexcept { return preferences_ != nullptr; }

  // Reads the file, or starts with defaults where there is none or it cannot be read.
  void Preferences_Init();
  // Says that the launch is over: what is in force and shown came about without the user. Where
  // there is no file, a save of just that which fails loses nothing. The first call counts.
  void NoteLaunched();
  // False when nothing was written, for whatever reason. Old preferences that hold entry types stay
  // as they are until the accounts that took these have been saved.
  bool Preferences_Save();
  // Copies the file as it stands on the disk into the backup folder when another version wrote it.
  // True when a backup was made.
  bool Preferences_Backup(const plist::Dictionary& dictionary);
  // Takes over columns and selected row of the tables shown. Null does nothing.
  void Preferences_StoreAccountPrefs(const LDGRAccount* account);

  // True when the last save failed and something is lost by that: what is shown changes the
  // preferences all the time, and is not worth a save by itself.
  [[nodiscard]] bool HasUnsavedChanges() const noexcept { return save_failure_ && !loses_nothing_; }
  // Why the last save failed; none when it did not.
  [[nodiscard]] const std::optional<SaveFailure>& Failure() const noexcept { return save_failure_; }
  // Set when the file could not be used in whole.
  [[nodiscard]] const std::optional<FileSetAside>& SetAside() const noexcept {
    return file_.SetAside();
  }
  // What kept copies hold that someone else had written, of this run and of the one before.
  [[nodiscard]] const std::vector<std::string>& CopiesOfOthers() const noexcept {
    return file_.CopiesOfOthers();
  }
  [[nodiscard]] const std::vector<std::string>& EarlierCopiesOfOthers() const noexcept {
    return file_.EarlierCopiesOfOthers();
  }

 private:
  [[nodiscard]] std::shared_ptr<LDGRPreferences> Build();
  // The preferences, with what is shown at the moment.
  [[nodiscard]] plist::Dictionary Shown();
  // None when it is written.
  [[nodiscard]] std::optional<SaveFailure> Write(const plist::Dictionary& dictionary);

  Services services_;
  SaveGate& gate_;
  Host& host_;
  DataPaths paths_;
  FileGuard file_;
  // The file is an old one with entry types.
  bool file_hands_over_types_ = false;
  std::shared_ptr<LDGRPreferences> preferences_;
  // As the launch left them without a file; none where one was read.
  std::optional<plist::Dictionary> launched_;
  std::optional<SaveFailure> save_failure_;
  // What the last save was to write is what the launch made of no file.
  bool loses_nothing_ = false;
};

}  // namespace tallyfold
