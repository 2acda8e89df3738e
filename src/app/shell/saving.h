#pragma once

#include <optional>
#include <string>

#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold {

// Writing the two files of the application. While it is locked it writes neither.
class Saving {
 public:
  // Both must outlive this.
  Saving(AccountsStore& accounts, PreferencesStore& preferences) noexcept
      : accounts_(accounts), preferences_(preferences) {}
  Saving(const Saving&) = delete;
  Saving& operator=(const Saving&) = delete;

  // As the stores'; false, and nothing is written, while the application is locked.
  bool Accounts_Save() { return accounts_.authenticated() && accounts_.Accounts_Save(); }
  bool Accounts_SaveToFilePath(const std::optional<std::string>& path) {
    return accounts_.authenticated() && accounts_.Accounts_SaveToFilePath(path);
  }
  bool Preferences_Save() { return accounts_.authenticated() && preferences_.Preferences_Save(); }

 private:
  AccountsStore& accounts_;
  PreferencesStore& preferences_;
};

}  // namespace tallyfold
