#include "app/controller.h"

#include <algorithm>

#include "filters/filter_types.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

LDGRController* shared_controller = nullptr;

}  // namespace

// One answer serves every component that asks the same question.
struct LDGRController::Hosts final : AccountsStore::Host,
                                     PreferencesStore::Host,
                                     Refresh::Host,
                                     TransferLinks::Host,
                                     AccountSelection::Host,
                                     AccountEditing::Host,
                                     EntryEditing::Host,
                                     EntryRemoval::Host,
                                     EntryReveal::Host,
                                     ScheduleCommit::Host,
                                     ExportCommands::Host,
                                     LDGRQIFImportController::Host,
                                     QifImportCommand::Host,
                                     SchedulesTab::Host,
                                     ScheduleEditing::Host,
                                     ScheduleReminder::Host,
                                     BalanceField::Host,
                                     ReconcileTab::Host,
                                     AccountPasswords::Host,
                                     AccountRemoval::Host,
                                     AccountSummaryTab::Host,
                                     AccountSummarySheet::Host,
                                     ApplicationLock::Host,
                                     PreferencesSheet::Host,
                                     AccountsDrawer::Host,
                                     Menus::Host,
                                     RegisterSearch::Host,
                                     Registers::Host,
                                     EntrySpeaker::Host,
                                     Tabs::Host,
                                     Printing::Host,
                                     IdleWatch::Host,
                                     TextEditing::Host,
                                     Lifecycle::Host {
  explicit Hosts(LDGRController& controller) noexcept : app(controller) {}

  // --- Accounts and preferences ---
  const AccountList& Accounts() const override { return app.accounts_.accounts(); }
  std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const override {
    return app.accounts_.AccountWithNumber(number);
  }
  std::int32_t HighestAccountNumber() const override {
    return app.accounts_.HighestAccountNumber();
  }
  void AddAccount(const std::shared_ptr<LDGRAccount>& account) override {
    app.accounts_.AddAccount(account);
  }
  void RemoveAccount(const LDGRAccount* account) override {
    if (app.authenticatingAccount().get() == account) app.account_passwords_.Forget();
    app.accounts_.RemoveAccount(account);
  }
  bool Account_Add() override { return app.Account_Add(); }
  bool Account_Edit() override { return app.Account_Edit(); }
  bool Accounts_Save() override { return app.Accounts_Save(); }
  bool Accounts_SaveToFilePath(const std::string& path) override {
    return app.Accounts_SaveToFilePath(path);
  }
  bool AccountsWantSaving() const override {
    return app.authenticated() && app.selection_.HasPostLoaded() &&
           app.accounts_.HasUnsavedChanges();
  }
  bool Preferences_Save() override { return app.Preferences_Save(); }
  const LDGRPreferences& Preferences() const override { return app.preferences(); }
  LDGRPreferences& Preferences() override { return app.preferences(); }
  void Preferences_StoreAccountPrefs(LDGRAccount& account) override {
    app.preferences_.Preferences_StoreAccountPrefs(&account);
  }
  bool LiveUpdatingFilters() const override { return app.preferences().GetLiveUpdatingFilters(); }

  // --- Passwords ---
  bool IsUnlocked() const override { return app.authenticated(); }
  bool HasPassword() const override { return !app.password().empty(); }
  const std::string& Password() const override { return app.password(); }
  void SetPassword(const std::string& password) override { app.setPassword(password); }
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) override {
    app.Account_Authenticate(account);
  }

  // --- Selection ---
  std::shared_ptr<LDGRAccount> SelectedAccount() const override {
    return app.selection_.Selected();
  }
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) override {
    app.selection_.Account_Select(account);
  }
  void ForgetSelectedAccount() override {
    app.registers_.ShowAccount(nullptr);
    app.schedules_.ShowAccount(nullptr);
    app.selection_.Forget();
    app.account_passwords_.Forget();
    app.reveal_.Forget();
  }
  void Account_Deselect() override { app.selection_.Account_Deselect(); }
  void Accounts_PostLoad() override { app.selection_.Accounts_PostLoad(); }
  void SetMainWindowTitleForAccount(const LDGRAccount* account) override {
    app.selection_.SetMainWindowTitleForAccount(account);
  }
  std::shared_ptr<LDGRAccountEntry> SelectedEntry() const override { return app.SelectedEntry(); }
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) override {
    app.SelectEntry(entry);
  }

  // --- What is shown ---
  std::optional<LiveTable> TableShown(std::string_view identifier) override {
    if (identifier == "schedule") return LiveTableOf(app.schedules_.Table());
    return app.registers_.TableShown(identifier);
  }
  const LDGRAccount* AccountShown() override { return app.selection_.Selected().get(); }
  std::int32_t BalanceMode() override {
    return static_cast<std::int32_t>(app.balance_field_.Mode());
  }
  float AccountsDrawerWidth() override { return app.preferences().GetAccountsDrawerWidth(); }
  std::int32_t AccountsDrawerPreferredEdge() override {
    return app.preferences().GetAccountsDrawerPreferredEdge();
  }
  void ShowSummary(LDGRAccount* /*account*/) override { app.summary_tab_.Show(); }
  void ShowInTables(const std::shared_ptr<LDGRAccount>& account) override {
    app.reveal_.Forget();
    app.registers_.ShowAccount(account);
    app.schedules_.ShowAccount(account);
    app.front_end_.Changed(Area::Schedules);
    app.refresh_.ReconcileTab_UpdateBalances();
  }
  void FillCurrentRegister() override {
    const LDGRAccount& account = *app.selection_.Selected();
    if (app.registers_.CurrentKind() == RegisterKind::Reconcile) {
      GiveCurrentRegister(account.reconcileFilteredEntries());
      PopulateForFilter(account.reconcileFilter().get());
      PopulateForFilterType(account.reconcileFilterType());
      app.refresh_.ReconcileTab_UpdateBalances();
    } else {
      GiveCurrentRegister(account.entryFilteredEntries());
      PopulateForFilter(account.entryFilter().get());
      PopulateForFilterType(account.entryFilterType());
      app.refresh_.AccountBalance_Field_Update();
    }
  }
  RegisterKind ShownRegister() const override { return app.tabs_.ShownRegister(); }
  void SetCurrentRegister(RegisterKind kind) override { app.registers_.SetCurrent(kind); }
  LDGRAccountTableViewData* CurrentRegister() override { return &app.registers_.Current(); }
  RegisterKind CurrentRegisterKind() const override { return app.registers_.CurrentKind(); }
  Tab SelectedTab() const override { return app.tabs_.State().selected; }
  void GiveCurrentRegister(EntryList entries) override {
    app.reveal_.Forget();
    app.registers_.Current().Reload(std::move(entries));
  }
  void ReloadShownRegister(EntryList entries) override {
    app.reveal_.Forget();
    app.registers_.Of(ShownRegister()).Reload(std::move(entries));
  }
  void ReloadRegisters() override {
    app.reveal_.Forget();
    app.registers_.Reload();
  }
  void TakeSavedEntries(const EntryList& entries) override {
    app.registers_.TakeSavedEntries(entries);
  }
  void ReloadSchedules() override { app.schedules_.Rows().Reload(); }
  void RedrawRegisters() override { app.registers_.Redraw(); }
  // No account is loaded yet: the registers show the columns of the one that is going to be shown.
  void SetUpRegisters() override {
    app.amount_fields_.SetSpeak(app.preferences().GetSpeakEntryAmounts());
    app.AccountBalance_PopUp_Populate(app.preferences().GetBalanceMode());
    app.registers_.UpdateDateFormat();
    app.schedules_.UpdateDateFormat();
    app.registers_.ShowColumnsOf(app.preferences().GetSelectedAccountNumber());
  }

  // --- Schedules and balances ---
  std::shared_ptr<LDGRAccountSchedule> SelectedSchedule() const override {
    return app.SelectedSchedule();
  }
  void SelectSchedule(const std::shared_ptr<LDGRAccountSchedule>& schedule) override {
    app.SelectSchedule(schedule);
  }
  double TotalOfEntryRows() const override { return app.registers_.Entry().TotalOfRows(); }
  std::shared_ptr<LDGRAccountEntry> SelectedEntryRow() const override {
    return app.registers_.Entry().GetSelectedEntry();
  }
  void TurnClearedOver(const std::shared_ptr<LDGRAccountEntry>& entry) override {
    app.editing_.TurnClearedOver(entry);
  }

  // --- Entries out of sight ---
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) override {
    using Reason = EntryReveal::Reason;
    app.reveal_.TellIfHidden(entry, is_new ? Reason::Added : Reason::Changed);
  }
  std::shared_ptr<LDGRFilter> CurrentFilter() const override {
    const auto& account = app.selection_.Selected();
    if (account == nullptr) return nullptr;
    return app.registers_.CurrentKind() == RegisterKind::Reconcile ? account->reconcileFilter()
                                                                   : account->entryFilter();
  }
  void ShowAllEntries() override {
    const bool is_reconcile = app.registers_.CurrentKind() == RegisterKind::Reconcile;
    app.tabs_.Select(is_reconcile ? Tab::Reconcile : Tab::Entry);
    app.search_.Filter_Select(filter_type::kGeneral);
  }

  // --- Search ---
  void Search_Cancel() override { app.search_.Search_Cancel(); }
  void CancelDelayedSearch() override { app.search_.CancelDelayedSearch(); }
  void PopulateForFilter(const LDGRFilter* filter) override {
    app.search_.PopulateForFilter(filter);
  }
  void PopulateForFilterType(std::int32_t type) override {
    app.search_.PopulateForFilterType(type);
  }
  void SearchStateChanged() override { app.front_end_.Changed(Area::Search); }
  void FocusAccountsTable() override { app.window_->FocusAccountsTable(); }
  void FocusSearchField() override { app.window_->FocusSearchField(); }
  void UpdateEntryDependentButtons() override { app.refresh_.EntryButtons_Update(); }
  void UpdateBalanceField() override { app.refresh_.AccountBalance_Field_Update(); }

  // --- Sheets ---
  bool SheetIsOpen() const override { return !app.sheets_.IsFree(); }
  void DebitSheet_Split_Table_Field() override { app.DebitSheet_Split_Table_Field(); }
  void DepositSheet_Split_Table_Field() override { app.DepositSheet_Split_Table_Field(); }
  void SuggestForDescription() override { app.editing_.SuggestForDescription(); }
  void DropSuggestion() override { app.editing_.DropSuggestion(); }
  void ObserveTextEditing() override { app.text_editing_.Observe(); }

  // --- Import ---
  bool EditOwned(EditedEntry edited) override { return app.editing_.EditOwned(std::move(edited)); }
  bool ConfirmImport(std::size_t count) override {
    return app.modal_.Run({LocalizedText("Import"),
                           LocalizedText("Entries to import:") + ' ' + std::to_string(count),
                           {LocalizedText("OK"), LocalizedText("Cancel")}}) == 0;
  }
  void Speak(std::string text) override { app.speaker_.SpeakText(std::move(text)); }
  void ImportEnded() override { app.import_command_.Ended(); }
  void RefreshSummaryIfShowing() override {
    if (app.tabs_.State().selected == Tab::Summary) ShowSummary(app.selection_.Selected().get());
  }

  // --- The main window ---
  void CloseMainWindow() override { app.window_->Close(); }
  void FocusPasswordField() override { app.window_->FocusPasswordField(); }
  bool ModalWindowIsUp() const override { return app.modal_.IsUp() || app.import_.IsRunning(); }
  void PreferencesChanged() override {
    app.window_->updateTableFonts();
    app.window_->UpdateTableRowHeights();
    app.AccountBalance_PopUp_Populate(app.preferences().GetBalanceMode());
    app.amount_fields_.SetSpeak(app.preferences().GetSpeakEntryAmounts());
    app.registers_.UpdateDateFormat();
    app.schedules_.UpdateDateFormat();
    if (app.preferences().GetShowAccountsDrawer() != app.drawer_.State().is_open) {
      app.ToggleAccountsDrawer();
    }
    app.front_end_.Changed(Area::Preferences);
    app.refresh_.AccountsChanged();
  }

  // --- Services ---
  void StopSpeech() override { app.speaker_.StopSpeech(); }
  bool RegisterWindowIsMain() const override { return app.window_->IsMain(); }
  float PauseBetweenSpokenEntries() const override {
    return app.preferences().GetPauseBetweenSpokenEntries();
  }
  double LastEventTimestamp() const override { return app.application_.lastEventTimestamp(); }
  void ReplaceScheduleReminderTimer() override { app.idle_.ReplaceScheduleReminderTimer(); }
  bool SchedulesCanBeEvaluated() const override {
    return app.authenticated() && app.selection_.Selected() != nullptr;
  }
  void OfferDueOccurrences(bool by_timer) override { app.reminder_.OfferDueOccurrences(by_timer); }
  void Quit() override { app.Quit(); }

  LDGRController& app;
};

LDGRController::LDGRController(const Services& services)
    : hosts_(std::make_unique<Hosts>(*this)),
      modal_(services.alerts, services.panels),
      application_(services.notifications),
      data_lock_(services.files, modal_, services.host),
      accounts_({services.files, modal_, services.host, services.processes}, gate_, data_lock_,
                *hosts_),
      preferences_({services.files, services.host, services.processes}, gate_, *hosts_),
      refresh_(*hosts_, front_end_),
      links_(*hosts_),
      selection_(*hosts_, refresh_, front_end_),
      account_editing_(*hosts_, links_, sheets_, refresh_, front_end_),
      editing_(*hosts_, links_, sheets_, refresh_, front_end_),
      removal_(*hosts_, links_, sheets_, refresh_, front_end_),
      reveal_(*hosts_, links_, front_end_),
      schedule_commit_(*hosts_, links_, refresh_),
      export_(*hosts_, services.files, services.encodings, modal_, modal_),
      import_(*hosts_, services.files, services.encodings, sheets_, front_end_),
      schedules_(*hosts_, schedule_commit_, sheets_, refresh_, front_end_),
      schedule_editing_(*hosts_, sheets_, refresh_, front_end_),
      reminder_(*hosts_, schedule_commit_, sheets_, services.loop, front_end_),
      balance_field_(*hosts_, front_end_),
      reconcile_tab_(*hosts_, refresh_),
      backups_(accounts_),
      account_passwords_(*hosts_, sheets_, window_, front_end_),
      account_removal_(*hosts_, modal_, sheets_, refresh_),
      summary_tab_(*hosts_, modal_, sheets_, front_end_),
      summary_sheet_(*hosts_, sheets_, front_end_),
      lock_(accounts_, *hosts_, sheets_, window_, refresh_, services.loop, front_end_),
      preferences_sheet_(*hosts_, sheets_, services.loop, front_end_),
      updates_(services.host, services.updates, front_end_),
      drawer_(*hosts_, refresh_, front_end_),
      menus_(*hosts_, links_, sheets_, refresh_),
      search_(services.loop, *hosts_),
      registers_(*hosts_, front_end_),
      speaker_(services.loop, services.speech, *hosts_),
      amount_fields_(services.loop, services.field_speech),
      tabs_(*hosts_, refresh_, front_end_),
      printing_(*hosts_),
      idle_(services.loop, *hosts_),
      import_command_(*hosts_, import_, services.encodings, modal_, idle_, refresh_),
      text_editing_(services.notifications, *hosts_),
      lifecycle_(*hosts_,
                 {data_lock_, window_, updates_, preferences_, accounts_, services.notifications,
                  drawer_, idle_, lock_, selection_, refresh_, services.host}) {
  Filters_Init();
  shared_controller = this;
}

LDGRController::~LDGRController() {
  if (shared_controller == this) shared_controller = nullptr;
}

LDGRController* LDGRController::sharedController() noexcept {
  return shared_controller;
}

void LDGRController::CancelOpenSheet() {
  switch (OpenSheet()) {
    case Sheet::None:
    case Sheet::Authentication:
    case Sheet::AccountAuthentication:
      return;
    case Sheet::Debit:
      return DebitSheet_Cancel();
    case Sheet::Deposit:
      return DepositSheet_Cancel();
    case Sheet::Transfer:
      return TransferSheet_Cancel();
    case Sheet::EntryRemoveConfirm:
      return EntryRemoveConfirm_Cancel();
    case Sheet::TransferEntryRemoveConfirm:
      return TransferEntryRemoveConfirm_Cancel();
    case Sheet::Schedule:
      return ScheduleSheet_Cancel();
    case Sheet::ScheduleRemoveConfirm:
      return ScheduleRemoveConfirm_Cancel();
    case Sheet::ScheduleReminder:
      return ScheduleReminderSheet_Later();
    case Sheet::AccountEdit:
      return AccountEditSheet_Cancel();
    case Sheet::AccountSummary:
      return AccountSummarySheet_Cancel();
    case Sheet::Preferences:
      return PreferencesSheet_Cancel();
    case Sheet::ImportOptions:
      return import_.ImportOptions_Cancel();
  }
}

void LDGRController::controlTextDidChange(TypedField field, std::string_view text) {
  const auto& preferences = preferences_sheet_.State();
  switch (field) {
    case TypedField::Search:
      return Search_Field(text);
    case TypedField::Password:
      return authenticationSheet_ValidatePassword(std::string(text));
    case TypedField::AccountPassword:
      return accountAuthenticationSheet_ValidatePassword(std::string(text));
    case TypedField::PreferencesPassword:
      return preferencesSheet_PasswordValidate(std::string(text), preferences.password_again);
    case TypedField::PreferencesPasswordAgain:
      return preferencesSheet_PasswordValidate(preferences.password, std::string(text));
    case TypedField::ReminderLookAhead:
      scheduleReminderSheet_LookAhead(text);
      return;
  }
}

AccountsStore::RestoreResult LDGRController::Accounts_RestoreBackup(const std::string& name) {
  const auto result = accounts_.Accounts_RestoreBackup(name);
  if (result != AccountsStore::RestoreResult::Restored) return result;
  // The backup has the password of its time.
  authenticated() ? Accounts_PostLoad() : authentication_Begin();
  return result;
}

}  // namespace tallyfold
