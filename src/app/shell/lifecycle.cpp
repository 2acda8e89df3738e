#include "app/shell/lifecycle.h"

#include <string>

#include "app/shell/application.h"

namespace tallyfold {

void Lifecycle::awakeFromNib() {
  using Command = KeyEquivalent::Command;
  parts_.window->AddKeyEquivalent({'+', false, Command::depositEntry_MenuItem});
  parts_.window->AddKeyEquivalent({'+', true, Command::schedule_Deposit_MenuItem});
}

bool Lifecycle::applicationDidFinishLaunching() {
  if (!parts_.data_lock.Acquire()) return false;
  if (OnlyLooks()) parts_.recovery.LeaveAlone();
  parts_.window->LoadDatePicker();
  parts_.updates.SetAddress(std::string(BuiltInUpdateAddress()));
  parts_.window->SetUpBezels();
  parts_.preferences.Preferences_Init();
  parts_.window->updateTableFonts();
  parts_.window->UpdateTableRowHeights();
  parts_.window->SetUpControls();
  host_.SetUpRegisters();
  parts_.window->Internationalize();
  parts_.accounts.Legacy_Setup();

  power_off_ = parts_.notifications.Observe(
      kWillPowerOffNotification, [this](const void*) { workspaceWillPowerOffNotification(); });
  parts_.text_editing.Observe();
  user_input_ = parts_.notifications.Observe(
      kUserInputNotification, [this](const void*) { parts_.idle.userInputNotification(); });

  parts_.window->SetTabViewImages();
  parts_.window->Show();
  parts_.drawer.SetUp();
  if (LDGRPreferences::sharedPreferences().GetShowAccountsDrawer()) {
    parts_.drawer.ToggleAccountsDrawer();
  }
  parts_.window->BeforeLoad();
  if (!parts_.accounts.Accounts_Load()) return false;
  parts_.recovery.Replay();
  parts_.idle.ReplaceScheduleReminderTimer();
  if (parts_.lock.authenticated()) {
    parts_.selection.Accounts_PostLoad();
  } else {
    // The rest goes on meanwhile: it shows nothing of the accounts.
    parts_.lock.WaitAtLaunch();
  }
  parts_.window->FocusSearchField();
  parts_.window->CenterUpdateWindow();
  if (LDGRPreferences::sharedPreferences().GetCheckForUpdates()) {
    parts_.updates.CheckForUpdates_Auto();
  }
  parts_.refresh.entryMenu_Types_Menu_Populate();
  parts_.idle.Schedules_Evaluate();
  return true;
}

void Lifecycle::applicationWillTerminate() {
  parts_.application.FlushUserDefaults();
  if (!parts_.lock.authenticated()) return;
  if (parts_.accounts.HasAccountList()) parts_.accounts.Accounts_Save();
  if (parts_.preferences.HasPreferences()) parts_.preferences.Preferences_Save();
}

void Lifecycle::applicationWillBecomeActive() {
  parts_.window->Internationalize();
  parts_.window->RedrawTitledWindows();
}

void Lifecycle::windowWillClose() {
  Quit();
  parts_.drawer.drawerDidClose();
}

}  // namespace tallyfold
