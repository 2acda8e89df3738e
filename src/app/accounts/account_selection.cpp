#include "app/accounts/account_selection.h"

#include "model/current_account.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/preferences.h"

namespace tallyfold {

AccountSelection::~AccountSelection() {
  Forget();
}

void AccountSelection::ClearSelected() noexcept {
  const auto selected = desk_.SelectedAccount();
  if (selected != nullptr && CurrentAccount() == selected.get()) SetCurrentAccount(nullptr);
  desk_.SetSelectedAccount(nullptr);
}

void AccountSelection::Forget() noexcept {
  ClearSelected();
  has_post_loaded_ = false;
}

void AccountSelection::Accounts_PostLoad() {
  const Announcer::Operation operation(announcer_);
  if (!desk_.IsUnlocked()) return;
  has_post_loaded_ = true;
  host_.SettleRecovery();
  if (desk_.accounts().empty()) {
    host_.Account_Add();
  } else {
    refresh_.AccountsList_Redraw();
    auto account = desk_.AccountWithNumber(desk_.preferences().GetSelectedAccountNumber());
    if (account == nullptr) account = desk_.accounts().front();
    Account_Select(account);
  }
  refresh_.AccountBalance_Field_Update();
  refresh_.ReconcileTab_UpdateBalances();
  preferences_.NoteLaunched();
}

void AccountSelection::Account_Select(const std::shared_ptr<LDGRAccount>& account) {
  const Announcer::Operation operation(announcer_);
  host_.StopSpeech();
  if (account == nullptr || !desk_.IsUnlocked()) {
    Account_Deselect();
  } else if (account->IsAuthenticated()) {
    Select(account);
  } else {
    host_.Account_Authenticate(account);
  }
  refresh_.Account_Menu_Show_Menu_Populate();
  refresh_.entryMenu_Types_Menu_Populate();
  host_.ReplaceScheduleReminderTimer();
}

void AccountSelection::Select(const std::shared_ptr<LDGRAccount>& account) {
  if (const auto former = desk_.SelectedAccount()) {
    preferences_.Preferences_StoreAccountPrefs(former.get());
  }
  desk_.SetSelectedAccount(account);
  SetCurrentAccount(account.get());
  host_.ShowSummary();
  announcer_.Changed(Area::SelectedAccount);
  SetMainWindowTitleForAccount(account.get());
  desk_.preferences().SetSelectedAccountNumber(account->GetNumber());
  host_.ShowInTables(account);
  refresh_.EntryButtons_Update();
  announcer_.Changed(Area::ScheduleButtons);
  host_.FillCurrentRegister();
  refresh_.AccountsList_Redraw();
  window_->FocusAccountsTable();
}

void AccountSelection::Account_Deselect() {
  const Announcer::Operation operation(announcer_);
  host_.StopSpeech();
  ClearSelected();
  refresh_.AccountsList_Redraw();
  host_.ShowSummary();
  refresh_.EntryButtons_Update();
  announcer_.Changed(Area::ScheduleButtons);
  announcer_.Changed(Area::SelectedAccount);
  SetMainWindowTitleForAccount(nullptr);
  host_.ShowInTables(nullptr);
  host_.ClearSearch();
  refresh_.AccountBalance_Field_Update();
  refresh_.ReconcileTab_UpdateBalances();
  refresh_.Account_Menu_Show_Menu_Populate();
  refresh_.entryMenu_Types_Menu_Populate();
}

void AccountSelection::SetMainWindowTitleForAccount(const LDGRAccount* account) {
  const std::string subject =
      account != nullptr ? account->GetName() : LocalizedText("No Account Selected");
  window_title_ = Message("Tallyfold:  {1}", {subject});
  announcer_.Changed(Area::WindowTitle);
}

}  // namespace tallyfold
