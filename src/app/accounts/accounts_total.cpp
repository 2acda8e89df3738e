#include "app/accounts/accounts_total.h"

#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {

AccountsTotal TotalOfUnlocked(const AccountList& accounts, const LDGRPreferences& preferences) {
  AccountsTotal total;
  for (const auto& account : accounts) {
    if (account->IsLocked()) {
      ++total.locked;
      continue;
    }
    ++total.counted;
    total.amount += account->GetBalance();
  }
  total.amount = RoundNearZeroValue(total.amount);
  total.title = total.locked == 0
                    ? LocalizedText("Total")
                    : Message("Total without {1} locked", {std::to_string(total.locked)});
  total.text = RegisterAmountText(total.amount, preferences);
  return total;
}

}  // namespace tallyfold
