#include "benchmarks/household_register.h"

#include "model/current_account.h"

namespace tallyfold::benchmarks {

HouseholdRegister::HouseholdRegister(std::size_t entries) : account(MakeHouseholdAccount(entries)) {
  SetCurrentAccount(account.get());
  rows.SetTableView(&table);
  rows.SetTableIdentifier("entry");
  rows.SetAccountPreferences(std::make_shared<LDGRAccountPreferences>());
  rows.SetAccount(account);
  rows.Reload(account->GetEntries());
}

}  // namespace tallyfold::benchmarks
