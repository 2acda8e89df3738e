#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/civil_time.h"
#include "platform/clock.h"

namespace tallyfold {

// How files in the backup folders are named. `listing` holds the names already there.

// "Accounts_3_5_2007_2.0" for 5 March 2007: the file was last written by this very version.
[[nodiscard]] std::string AccountsBackupName(const CivilTime& today, std::string_view version);
// "Accounts_3_5_2007_Before_2.0": another version wrote the file, `version` now takes it over.
[[nodiscard]] std::string AccountsBackupNameBefore(const CivilTime& today,
                                                   std::string_view version);
// "Tallyfold Preferences_Before_2.0".
[[nodiscard]] std::string PreferencesBackupNameBefore(std::string_view version);

// `base`, or the first of base_1, base_2 ... that occurs in none of the names. It counts as taken
// wherever in a name it stands, so that compressed copies and those with an extension count too.
[[nodiscard]] std::string UniqueBackupName(const std::vector<std::string>& listing,
                                           std::string_view base);
// The same with the extension ".plist"; only the very first backup in a folder goes without.
[[nodiscard]] std::string UniqueAccountsBackupName(const std::vector<std::string>& listing,
                                                   std::string_view base);

// The name of the copy that is kept of a file not taken in whole, made at `time`:
// "Accounts.plist.kept-20070305-174501", with a counter where that is taken.
[[nodiscard]] std::string KeptCopyName(const std::vector<std::string>& listing,
                                       std::string_view file_name, const CivilTime& time);

// Whether a file beside the one named `file_name` is a copy that was kept of it.
[[nodiscard]] bool IsKeptCopyName(std::string_view name, std::string_view file_name);

// True when a newest backup made at `newest` (none: there is none yet) no longer serves for
// `interval` whole days. One that is dated less than a day ahead is 0 days old.
[[nodiscard]] bool BackupIsDue(const std::optional<Instant>& newest, Instant now, int interval);

}  // namespace tallyfold
