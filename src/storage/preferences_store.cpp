#include "storage/preferences_store.h"

#include <array>
#include <new>

#include "model/account.h"
#include "platform/ambient.h"
#include "plist/read_report.h"
#include "plist/writer.h"
#include "storage/backup_names.h"
#include "storage/backups.h"

namespace tallyfold {

namespace {

constexpr std::string_view kVersionKey = "appVersion";
constexpr std::array<std::string_view, 3> kTableNames = {"entry", "reconcile", "schedule"};

}  // namespace

PreferencesStore::PreferencesStore(const Services& services, SaveGate& gate, Host& host)
    : services_(services),
      gate_(gate),
      host_(host),
      paths_(services.files.HomeFolder()),
      file_(services.files, paths_.preferences_file) {}

PreferencesStore::~PreferencesStore() {
  if (preferences_ && &LDGRPreferences::sharedPreferences() == preferences_.get()) {
    LDGRPreferences::SetSharedPreferences(nullptr);
  }
}

void PreferencesStore::Preferences_Init() {
  preferences_ = Build();
  LDGRPreferences::SetSharedPreferences(preferences_);
  launched_.reset();
  save_failure_.reset();
  Preferences_StoreAccountPrefs(host_.AccountShown());
}

void PreferencesStore::NoteLaunched() {
  if (!preferences_ || file_.ContentRead() || launched_) return;
  launched_ = Shown();
}

plist::Dictionary PreferencesStore::Shown() {
  Preferences_StoreAccountPrefs(host_.AccountShown());
  preferences_->SetBalanceMode(host_.BalanceMode());
  preferences_->SetAccountsDrawerWidth(host_.AccountsDrawerWidth());
  preferences_->SetAccountsDrawerPreferredEdge(host_.AccountsDrawerPreferredEdge());
  return preferences_->asDictionary();
}

std::shared_ptr<LDGRPreferences> PreferencesStore::Build() {
  file_hands_over_types_ = false;
  const plist::ReadReport report;
  const auto dictionary = file_.Read();
  if (!dictionary) return std::make_shared<LDGRPreferences>();
  const bool is_backed_up = Preferences_Backup(*dictionary);
  file_hands_over_types_ = LDGRPreferences::HandsOverTypes(*dictionary);
  auto preferences =
      std::make_shared<LDGRPreferences>(LDGRPreferences::UpdatePreferencesDictionary(*dictionary));
  file_.NotTakenInWhole(report);
  if (!is_backed_up && !gate_.IsClosedForGood() && LDGRPreferences::IsOfOlderVersion(*dictionary)) {
    file_.NotTakenInWhole(kUpgradedWithoutBackup);
  }
  return preferences;
}

bool PreferencesStore::Preferences_Backup(const plist::Dictionary& dictionary) {
  if (gate_.IsClosedForGood()) return false;
  FileSystem& files = services_.files;
  if (!EnsureFolder(files, paths_.preferences_folder,
                    "~/Library/Preferences/Quorva/ exists, but it's a file!  Please move the file "
                    "to allow Tallyfold to create a folder to save your preferences.") ||
      !EnsureFolder(files, paths_.preferences_backup_folder,
                    "~/Library/Preferences/Quorva/Backups/ exists, but it's a file!  Please move "
                    "the file to allow Tallyfold to create a folder to backup your preferences.")) {
    return false;
  }
  const std::string running_version = services_.application.BundleVersion();
  const plist::Value& version = dictionary.Get(kVersionKey);
  if (version.IsString() && version.StringValue() == running_version) return false;
  const auto unique = [&running_version](const auto& taken) {
    return UniqueBackupName(taken, PreferencesBackupNameBefore(running_version));
  };
  if (!MakeBackup(files, services_.processes, paths_.preferences_file,
                  paths_.preferences_backup_folder, unique)) {
    Log("Backup operation was unsuccessful in LDGRController:Preferences_Backup.");
    return false;
  }
  return true;
}

void PreferencesStore::Preferences_StoreAccountPrefs(const LDGRAccount* account) {
  if (account == nullptr || !preferences_) return;
  for (const std::string_view identifier : kTableNames) {
    const auto table = host_.TableShown(identifier);
    if (!table) continue;
    const auto record = preferences_->GetPreferencesForAccountNumber(account->GetNumber());
    const std::string column = record->GetSelectedColumnIdentifierForTableIdentifier(identifier);
    record->SetSelectedColumn(column, record->GetSortDescendingForTableIdentifier(identifier),
                              table->selected_row, ColumnRecords(table->columns), identifier);
  }
}

bool PreferencesStore::Preferences_Save() {
  if (!gate_.IsOpen() || !preferences_) return false;
  loses_nothing_ = false;
  try {
    const plist::Dictionary dictionary = Shown();
    loses_nothing_ = launched_ == dictionary && !file_.ContentWritten();
    save_failure_ = Write(dictionary);
  } catch (const std::bad_alloc&) {
    save_failure_ = MemoryFailure();
  }
  return !save_failure_;
}

std::optional<SaveFailure> PreferencesStore::Write(const plist::Dictionary& dictionary) {
  FileSystem& files = services_.files;
  if (!EnsureFolder(files, paths_.preferences_folder,
                    "~/Library/Preferences/Quorva exists, but it's a file!  Please move the file "
                    "to allow Tallyfold to save your preferences.")) {
    return FolderFailure(true);
  }
  if (file_hands_over_types_ && host_.AccountsHoldUnsavedTypes()) {
    return SaveFailure{LocalizedText("replacing the old preferences"),
                       LocalizedText("the accounts that took their types from them are not saved")};
  }
  plist::Dictionary file = dictionary.ShallowCopy();
  file.Set(kVersionKey, services_.application.BundleVersion());
  if (!file_.Replace([&file](ByteSink& sink) { sink.Append(plist::ToXml(file)); })) {
    return file_.Failure();
  }
  file_hands_over_types_ = false;
  files.SetCustomBadgeIconForFilePath(paths_.preferences_file, "prefsfilebadge");
  return std::nullopt;
}

}  // namespace tallyfold
