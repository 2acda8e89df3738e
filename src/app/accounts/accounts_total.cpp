#include "app/accounts/accounts_total.h"

#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {

double SumOfUnlocked(const AccountList& accounts, double (LDGRAccount::*balance)() const) {
  double sum = 0.0;
  for (const auto& account : accounts) {
    if (!account->IsLocked()) sum += ((*account).*balance)();
  }
  return RoundNearZeroValue(sum);
}

AccountsTotal TotalOfUnlocked(const AccountList& accounts, const LDGRPreferences& preferences) {
  AccountsTotal total;
  for (const auto& account : accounts) {
    ++(account->IsLocked() ? total.locked : total.counted);
  }
  total.amount = SumOfUnlocked(accounts, &LDGRAccount::GetBalance);
  total.title = total.locked == 0
                    ? LocalizedText("Total")
                    : Message("Total without {1} locked", {std::to_string(total.locked)});
  total.text = RegisterAmountText(total.amount, preferences);
  return total;
}

}  // namespace tallyfold
