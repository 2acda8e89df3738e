#include "app/accounts/account_selection.h"

#include "model/current_account.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {

AccountSelection::~AccountSelection() {
  Forget();
}

void AccountSelection::ClearSelected() noexcept {
  if (selected_ != nullptr && CurrentAccount() == selected_.get()) SetCurrentAccount(nullptr);
  selected_ = nullptr;
}

void AccountSelection::Forget() noexcept {
  ClearSelected();
  has_post_loaded_ = false;
}

void AccountSelection::Accounts_PostLoad() {
  if (!host_.IsUnlocked()) return;
  has_post_loaded_ = true;
  if (host_.Accounts().empty()) {
    host_.Account_Add();
  } else {
    refresh_.AccountsList_Redraw();
    auto account = host_.AccountWithNumber(host_.Preferences().GetSelectedAccountNumber());
    if (account == nullptr) account = host_.Accounts().front();
    Account_Select(account);
  }
  refresh_.AccountBalance_Field_Update();
  refresh_.ReconcileTab_UpdateBalances();
}

void AccountSelection::Account_Select(const std::shared_ptr<LDGRAccount>& account) {
  host_.StopSpeech();
  if (account == nullptr || !host_.IsUnlocked()) {
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
  if (selected_ != nullptr) host_.Preferences_StoreAccountPrefs(*selected_);
  selected_ = account;
  SetCurrentAccount(account.get());
  host_.ShowSummary(account.get());
  front_end_.Changed(Area::SelectedAccount);
  SetMainWindowTitleForAccount(account.get());
  host_.Preferences().SetSelectedAccountNumber(account->GetNumber());
  host_.ShowInTables(account);
  refresh_.EntryButtons_Update();
  front_end_.Changed(Area::ScheduleButtons);
  host_.FillCurrentRegister();
  refresh_.AccountsList_Redraw();
  host_.FocusAccountsTable();
}

void AccountSelection::Account_Deselect() {
  ClearSelected();
  refresh_.AccountsList_Redraw();
  host_.ShowSummary(nullptr);
  refresh_.EntryButtons_Update();
  front_end_.Changed(Area::ScheduleButtons);
  front_end_.Changed(Area::SelectedAccount);
  SetMainWindowTitleForAccount(nullptr);
  host_.ShowInTables(nullptr);
  refresh_.AccountBalance_Field_Update();
  refresh_.ReconcileTab_UpdateBalances();
  refresh_.Account_Menu_Show_Menu_Populate();
  refresh_.entryMenu_Types_Menu_Populate();
}

void AccountSelection::SetMainWindowTitleForAccount(const LDGRAccount* account) {
  const std::string subject =
      account != nullptr ? account->GetName() : LocalizedText("No Account Selected");
  window_title_ = LocalizedText("Tallyfold") + ":  " + subject;
  front_end_.Changed(Area::WindowTitle);
}

}  // namespace tallyfold
