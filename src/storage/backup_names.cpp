#include "storage/backup_names.h"

#include <algorithm>
#include <chrono>

namespace tallyfold {

namespace {

constexpr std::string_view kKept = ".kept-";

std::string Padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

std::string AccountsBase(const CivilTime& today) {
  return "Accounts_" + std::to_string(today.month) + '_' + std::to_string(today.day) + '_' +
         std::to_string(today.year) + '_';
}

}  // namespace

std::string AccountsBackupName(const CivilTime& today, std::string_view version) {
  return AccountsBase(today).append(version);
}

std::string AccountsBackupNameBefore(const CivilTime& today, std::string_view version) {
  return AccountsBase(today).append("Before_").append(version);
}

std::string PreferencesBackupNameBefore(std::string_view version) {
  return std::string("Tallyfold Preferences_Before_").append(version);
}

std::string UniqueBackupName(const std::vector<std::string>& listing, std::string_view base) {
  std::string candidate(base);
  const auto holds_candidate = [&candidate](const std::string& name) {
    return name.find(candidate) != std::string::npos;
  };
  for (int counter = 1; std::any_of(listing.begin(), listing.end(), holds_candidate); ++counter) {
    candidate = std::string(base) + '_' + std::to_string(counter);
  }
  return candidate;
}

std::string UniqueAccountsBackupName(const std::vector<std::string>& listing,
                                     std::string_view base) {
  if (listing.empty()) return std::string(base);
  return UniqueBackupName(listing, base) + ".plist";
}

std::string KeptCopyName(const std::vector<std::string>& listing, std::string_view file_name,
                         const CivilTime& time) {
  const std::string date = Padded(time.year, 4) + Padded(time.month, 2) + Padded(time.day, 2);
  const std::string hour = Padded(time.hour, 2) + Padded(time.minute, 2) + Padded(time.second, 2);
  return UniqueBackupName(listing, std::string(file_name).append(kKept) + date + '-' + hour);
}

bool IsKeptCopyName(std::string_view name, std::string_view file_name) {
  if (!name.starts_with(file_name)) return false;
  name.remove_prefix(file_name.size());
  return name.starts_with(kKept);
}

bool BackupIsDue(const std::optional<Instant>& newest, Instant now, int interval) {
  return !newest ||
         std::chrono::duration_cast<std::chrono::days>(now - *newest).count() >= interval;
}

}  // namespace tallyfold
