#pragma once

#include <cstddef>
#include <memory>

#include "benchmarks/household_account.h"
#include "registers/account_table_view_data.h"

namespace tallyfold::benchmarks {

// A register that shows a household account of so many entries by itself, in the order of days,
// with its running balances.
struct HouseholdRegister {
  explicit HouseholdRegister(std::size_t entries);

  struct UnlockedHost final : TableHost {
    [[nodiscard]] bool IsUnlocked() const override { return true; }
    [[nodiscard]] const LDGRPreferences& preferences() const override { return wanted; }
    LDGRPreferences wanted;
  };
  UnlockedHost host;
  std::shared_ptr<LDGRAccount> account;
  TableState table{DefaultRegisterColumns()};
  LDGRAccountTableViewData rows{host};
};

}  // namespace tallyfold::benchmarks
