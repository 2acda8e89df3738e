#include "app/storage_answers.h"

#include "app/parts.h"

namespace tallyfold {

void StorageAnswers::ForgetSelectedAccount() {
  parts_.ledger.history().Clear();
  parts_.announcer.Changed(Area::History);
  parts_.registers.ShowAccount(nullptr);
  parts_.schedules.ShowAccount(nullptr);
  parts_.search.Clear();
  parts_.selection.Forget();
  parts_.account_passwords.Forget();
  parts_.reveal.Forget();
  parts_.orders.Forget();
  parts_.linking.Forget();
  parts_.find.Forget();
}

void StorageAnswers::CloseMainWindow() {
  parts_.window->Close();
}

std::optional<LiveTable> StorageAnswers::TableShown(std::string_view identifier) {
  if (identifier == "schedule") return LiveTableOf(parts_.schedules.Table());
  return parts_.registers.TableShown(identifier);
}

const LDGRAccount* StorageAnswers::AccountShown() {
  return parts_.desk.SelectedAccount().get();
}

std::int32_t StorageAnswers::BalanceMode() {
  return static_cast<std::int32_t>(parts_.balance_field.Mode());
}

float StorageAnswers::AccountsDrawerWidth() {
  return parts_.desk.preferences().GetAccountsDrawerWidth();
}

std::int32_t StorageAnswers::AccountsDrawerPreferredEdge() {
  return parts_.desk.preferences().GetAccountsDrawerPreferredEdge();
}

bool StorageAnswers::AccountsHoldUnsavedTypes() {
  return parts_.accounts.HoldsUnsavedTypes();
}

}  // namespace tallyfold
