#pragma once

#include <cstddef>
#include <string>

#include "model/account.h"
#include "storage/preferences.h"

namespace tallyfold {

// The line below the accounts list.
struct AccountsTotal {
  // The sum of the balances of the accounts that are not locked.
  double amount = 0.0;
  std::size_t counted = 0;
  std::size_t locked = 0;
  // "Total", or "Total without 2 locked"; and the amount as the preferences want it.
  std::string title;
  std::string text;
};

// The sum of one of their balances over the accounts that are not locked.
[[nodiscard]] double SumOfUnlocked(const AccountList& accounts,
                                   double (LDGRAccount::*balance)() const);

[[nodiscard]] AccountsTotal TotalOfUnlocked(const AccountList& accounts,
                                            const LDGRPreferences& preferences);

}  // namespace tallyfold
