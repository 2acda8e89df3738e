#include "storage/accounts_store.h"

#include <algorithm>
#include <utility>

#include "model/type_handover.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "platform/progress.h"
#include "plist/read_report.h"
#include "storage/account_numbers.h"
#include "storage/backup_names.h"
#include "storage/preferences.h"

// Where a user finds the latest version; set by the build, "" for a build without such a place.
#ifndef TALLYFOLD_DOWNLOAD_ADDRESS
#define TALLYFOLD_DOWNLOAD_ADDRESS ""
#endif

namespace tallyfold {

namespace {

constexpr std::string_view kAccounts = "accounts";
constexpr std::string_view kEntries = "entries";
constexpr std::string_view kPassword = "password";
constexpr std::string_view kAppVersion = "appVersion";
constexpr std::string_view kVersion = "version";

std::string TooNewMessage() {
  constexpr std::string_view address = TALLYFOLD_DOWNLOAD_ADDRESS;
  std::string message = LocalizedText(
      "Your Accounts file appears to be in a new format that this version of Tallyfold may not "
      "understand.  Your data may be lost if Tallyfold continues to try to read the new format.");
  message += "\n\n";
  if (address.empty()) {
    message += LocalizedText(
        "Please use the version of Tallyfold that you last used with this file, or download the "
        "latest version.");
  } else {
    message += Message(
        "Please use the version of Tallyfold that you last used with this file, or "
        "download the latest version from {1}.",
        {std::string(address)});
  }
  return message;
}

// Whether the version of any account dictionary in the file matches.
template <typename Predicate>
bool AnyAccount(const std::optional<plist::Dictionary>& dictionary, Predicate matches) {
  if (!dictionary) return false;
  const plist::Array accounts = dictionary->Get(kAccounts).ArrayValue();
  return std::any_of(accounts.begin(), accounts.end(), [&matches](const plist::Value& account) {
    return account.IsDictionary() && matches(account.DictionaryValue().Get(kVersion));
  });
}

}  // namespace

AccountsStore::AccountsStore(const Services& services, SaveGate& gate, DataFolderLock& lock,
                             Host& host)
    : services_(services),
      gate_(gate),
      lock_(lock),
      host_(host),
      paths_(services.files.HomeFolder()),
      file_(services.files, paths_.accounts_file) {}

// --- The accounts -------------------------------------------------------------------------------

const AccountList& AccountsStore::accounts() const noexcept {
  static const AccountList none;
  return accounts_ ? *accounts_ : none;
}

void AccountsStore::AddAccount(std::shared_ptr<LDGRAccount> account) {
  InsertAccount(accounts().size(), std::move(account));
}

void AccountsStore::InsertAccount(std::size_t place, std::shared_ptr<LDGRAccount> account) {
  if (!account) return;
  if (!accounts_) accounts_.emplace();
  place = std::min(place, accounts_->size());
  accounts_->insert(accounts_->begin() + static_cast<std::ptrdiff_t>(place), std::move(account));
  list_changes_.NoteChange();
}

void AccountsStore::ReserveAccounts(std::size_t more) {
  if (!accounts_) accounts_.emplace();
  accounts_->reserve(accounts_->size() + more);
}

void AccountsStore::RemoveAccount(const LDGRAccount* account) {
  if (!accounts_) return;
  const auto removed =
      std::erase_if(*accounts_, [account](const auto& each) { return each.get() == account; });
  if (removed != 0) list_changes_.NoteChange();
}

std::shared_ptr<LDGRAccount> AccountsStore::AccountWithNumber(std::int32_t number) const {
  const auto found = std::find_if(accounts().begin(), accounts().end(), [number](const auto& each) {
    return each->GetNumber() == number;
  });
  return found == accounts().end() ? nullptr : *found;
}

std::int32_t AccountsStore::HighestAccountNumber() const noexcept {
  std::int32_t highest = 0;
  for (const auto& account : accounts()) highest = std::max(highest, account->GetNumber());
  return highest;
}

const std::string& AccountsStore::password() const noexcept {
  static const std::string none;
  return password_ ? *password_ : none;
}

void AccountsStore::setPassword(std::optional<std::string_view> password) {
  if (!password || password_ == password) return;
  password_ = std::string(*password);
  list_changes_.NoteChange();
  const bool forgets = !password_->empty() && !gate_.IsClosedForGood();
  if (forgets && services_.files.Exists(paths_.history_file)) {
    services_.files.Remove(paths_.history_file);
  }
}

void AccountsStore::ExchangePassword(std::string& password) noexcept {
  if (!password_) password_.emplace();
  password_->swap(password);
  list_changes_.NoteChange();
}

// --- Loading ------------------------------------------------------------------------------------

bool AccountsStore::Accounts_Load() {
  const SaveGate::Hold hold(gate_);
  try {
    return Load();
  } catch (...) {
    // Accounts that are here in part only must not replace the whole.
    gate_.CloseForGood();
    save_failure_ = SaveFailure{LocalizedText("reading the accounts"), MemoryFailure().reason};
    throw;
  }
}

bool AccountsStore::Load() {
  accounts_.emplace();
  host_.ForgetSelectedAccount();
  password_.emplace();
  authenticated_ = true;
  holds_unsaved_types_ = false;
  if (!gate_.IsClosedForGood()) {
    services_.files.AddPermissions(paths_.data_folder, kOwnerAll);
    services_.files.AddPermissions(paths_.accounts_file, kOwnerAll);
  }

  const plist::ReadReport report;
  file_content_ = ContentMark();
  std::optional<plist::Dictionary> dictionary = file_.Read();
  file_content_ = file_.ContentRead();
  if (dictionary) {
    if (!Accounts_HandleModifiedByNewerTallyfold(dictionary)) return false;
    if (!Accounts_HandleWillBeUpgradedByTallyfold(dictionary)) return false;
    const bool is_upgraded = HasOlderAccount(dictionary);
    const bool is_backed_up = Accounts_Backup(*dictionary);
    plist::ReportUnknownKeys(*dictionary, 0, [](std::string_view key) {
      return key == kAccounts || key == kPassword || key == kAppVersion;
    });
    const std::uint64_t types_taken = TimesTypesWereTaken();
    TakeAccounts(dictionary->Take(kAccounts));
    holds_unsaved_types_ = TimesTypesWereTaken() != types_taken;
    TakePassword(dictionary->Get(kPassword));
    file_.NotTakenInWhole(report);
    if (is_upgraded && !is_backed_up && !gate_.IsClosedForGood()) {
      file_.NotTakenInWhole(kUpgradedWithoutBackup);
    }
  }
  saved_ = CurrentSnapshot();
  save_failure_.reset();
  return true;
}

void AccountsStore::TakeAccounts(const plist::Value& stored) {
  if (!stored.IsArray()) {
    Log("Accounts file does not contain any accounts.");
    file_.NotTakenInWhole("The file does not contain a list of accounts.");
    return;
  }
  plist::Array dictionaries = stored.ArrayValue();
  std::size_t entries = 0;
  for (const plist::Value& each : dictionaries) {
    if (each.IsDictionary()) entries += each.DictionaryValue().Get(kEntries).ArrayValue().size();
  }
  LongOperation operation(LongWork::Loading, entries);
  for (std::size_t i = 0; i < dictionaries.size(); ++i) {
    if (!dictionaries.At(i).IsDictionary()) {
      Log("Invalid theDictionary supplied to LDGRAccount:initWithDictionary");
      plist::ReportNotTaken(plist::NotTaken::Skipped, kAccounts);
      continue;
    }
    auto account = LDGRAccount::accountByConsuming(
        LDGRAccount::UpdateAccountDictionary(dictionaries.Take(i).DictionaryValue()));
    accounts_->push_back(std::move(account));
  }
  NumberAccountsOfFile(*accounts_);
  operation.Finish();
}

void AccountsStore::TakePassword(const plist::Value& password) {
  if (password.IsNone()) return;
  if (!password.IsString()) {
    file_.NotTakenInWhole("The password in the file is no text.");
    return;
  }
  password_ = std::string(password.StringValue());
  authenticated_ = password_->empty();
}

bool AccountsStore::HasNewerAccount(const std::optional<plist::Dictionary>& dictionary) {
  return AnyAccount(dictionary, [](const plist::Value& version) {
    return version.IntegerValue() > LDGRAccount::kCurrentVersion;
  });
}

bool AccountsStore::HasOlderAccount(const std::optional<plist::Dictionary>& dictionary) {
  return AnyAccount(dictionary, [](const plist::Value& version) {
    return version.IsNone() || version.IntegerValue() < LDGRAccount::kCurrentVersion;
  });
}

bool AccountsStore::Accounts_HandleModifiedByNewerTallyfold(
    const std::optional<plist::Dictionary>& dictionary) {
  if (!HasNewerAccount(dictionary)) return true;
  services_.alerts.Run(
      {LocalizedText("Account Information Is Too New"), TooNewMessage(), {LocalizedText("Quit")}});
  EndProgram();
  return false;
}

bool AccountsStore::Accounts_HandleWillBeUpgradedByTallyfold(
    const std::optional<plist::Dictionary>& dictionary) {
  if (!HasOlderAccount(dictionary)) return true;
  constexpr std::size_t kUpdate = 1;
  const std::size_t answer = services_.alerts.Run(
      {LocalizedText("Update Accounts File?"),
       LocalizedText(
           "Your Accounts file was created by an older version of Tallyfold and must be updated "
           "before you can continue.  You will probably not be able to use the Accounts file with "
           "an older version of Tallyfold after the update is completed.\n\nAre you sure you would "
           "like to update your Accounts file?"),
       {LocalizedText("Quit"), LocalizedText("Update")}});
  if (answer == kUpdate) return true;
  EndProgram();
  return false;
}

void AccountsStore::EndProgram() {
  // Closing the window is a way to shut down, and shutting down saves.
  gate_.CloseForGood();
  host_.CloseMainWindow();
  services_.application.EndProcess(0);
}

// --- Backup -------------------------------------------------------------------------------------

bool AccountsStore::Accounts_Backup(const plist::Dictionary& dictionary) {
  if (gate_.IsClosedForGood()) return false;
  FileSystem& files = services_.files;
  if (!EnsureFolder(files, paths_.data_folder,
                    "~/Library/Tallyfold/ exists, but it's a file!  Please move the file to allow "
                    "Tallyfold to create a folder to save your data.") ||
      !EnsureFolder(files, paths_.backup_folder,
                    "~/Library/Tallyfold/Backups/ exists, but it's a file!  Please move the file "
                    "to allow Tallyfold to create a folder to backup your data.")) {
    return false;
  }
  const std::string running_version = services_.application.BundleVersion();
  const CivilTime today = CurrentClock().LocalNow();
  const plist::Value& version = dictionary.Get(kAppVersion);
  std::string name;
  if (version.IsString() && version.StringValue() == running_version) {
    const auto backups = BackupsNewestFirst(files, paths_.backup_folder);
    const auto newest = backups.empty() ? std::nullopt : std::optional(backups.front().made);
    const std::int32_t interval = LDGRPreferences::sharedPreferences().GetBackupInterval();
    if (!BackupIsDue(newest, CurrentClock().Now(), interval)) return false;
    name = AccountsBackupName(today, running_version);
  } else {
    name = AccountsBackupNameBefore(today, running_version);
  }
  const auto unique = [&name](const auto& taken) { return UniqueAccountsBackupName(taken, name); };
  if (!MakeBackup(files, services_.processes, paths_.accounts_file, paths_.backup_folder, unique)) {
    Log("Backup operation was unsuccessful in LDGRController:Accounts_Backup.");
    return false;
  }
  return true;
}

// --- Writing ------------------------------------------------------------------------------------

void AccountsStore::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  output.Key(kAccounts);
  output.BeginArray();
  for (const auto& account : accounts()) account->WriteTo(output);
  output.EndArray();
  if (password_) {
    output.Key(kPassword);
    output.String(*password_);
  }
  output.Key(kAppVersion);
  output.String(services_.application.BundleVersion());
  output.EndDictionary();
}

}  // namespace tallyfold
