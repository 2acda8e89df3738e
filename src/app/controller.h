#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_removal.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/entries/amount_fields.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/entries/entry_reveal.h"
#include "app/entries/transfer_links.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/front_end_slot.h"
#include "app/face/main_window.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/face/text_editing.h"
#include "app/schedules/schedule_commit.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/services.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/menus.h"
#include "app/shell/modal_watch.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/printing.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "filters/standard_filters.h"
#include "model/day_field.h"
#include "registers/entry_speaker.h"
#include "storage/accounts_store.h"
#include "storage/data_folder_lock.h"
#include "storage/preferences_store.h"
#include "storage/save_gate.h"

namespace tallyfold {

// The application: its accounts, its preferences and everything the user does with them. Each
// operation belongs to a component, under whose header it is listed here and where its contract
// stands. Front ends and tests drive the same operations and read the same states.
//
// Everything runs on the main thread. Operations are not reentrant.
class LDGRController {
 public:
  // The services must outlive the controller, which becomes the sharedController().
  explicit LDGRController(const Services& services);
  LDGRController(const LDGRController&) = delete;
  LDGRController& operator=(const LDGRController&) = delete;
  ~LDGRController();

  // The one that was made last, as long as it lives; else null.
  [[nodiscard]] static LDGRController* sharedController() noexcept;

  // --- app/face/front_end.h, app/face/main_window.h, app/face/sheet_slot.h ----------------------
  // Who shows the application; null (as at first) for nobody. Both must outlive their stay here.
  void SetFrontEnd(FrontEnd* front_end) noexcept { front_end_.Set(front_end); }
  void SetMainWindow(MainWindow* window) noexcept { window_.Set(window); }
  void updateTableFonts() { window_->updateTableFonts(); }
  void UpdateTableRowHeights() { window_->UpdateTableRowHeights(); }
  void Internationalize() { window_->Internationalize(); }
  void SetTabViewImages() { window_->SetTabViewImages(); }
  [[nodiscard]] Sheet OpenSheet() const noexcept { return sheets_.Current(); }
  // Cancels whatever sheet is open, but for those that ask for a password.
  void CancelOpenSheet();

  // --- app/shell/application.h ------------------------------------------------------------------
  [[nodiscard]] LDGRApplication& application() noexcept { return application_; }

  // --- app/shell/lifecycle.h --------------------------------------------------------------------
  void awakeFromNib() { lifecycle_.awakeFromNib(); }
  [[nodiscard]] bool applicationDidFinishLaunching() {
    return lifecycle_.applicationDidFinishLaunching();
  }
  [[nodiscard]] bool applicationShouldTerminate() const noexcept {
    return lifecycle_.applicationShouldTerminate();
  }
  [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const noexcept {
    return lifecycle_.applicationShouldTerminateAfterLastWindowClosed();
  }
  void applicationWillTerminate() { lifecycle_.applicationWillTerminate(); }
  void workspaceWillPowerOffNotification() { lifecycle_.workspaceWillPowerOffNotification(); }
  void applicationWillBecomeActive() { lifecycle_.applicationWillBecomeActive(); }
  void applicationWillResignActive() { lifecycle_.applicationWillResignActive(); }
  void windowWillClose() { lifecycle_.windowWillClose(); }
  void quit_MenuItem() { Quit(); }
  void Quit() { lifecycle_.Quit(); }

  // --- app/shell/application_lock.h -------------------------------------------------------------
  [[nodiscard]] std::int32_t initState() const noexcept { return lock_.initState(); }
  [[nodiscard]] bool authenticated() const noexcept { return lock_.authenticated(); }
  bool authenticate(std::optional<std::string_view> password) {
    return lock_.authenticate(password);
  }
  [[nodiscard]] const std::string& password() const noexcept { return lock_.password(); }
  void setPassword(std::optional<std::string_view> password) { lock_.setPassword(password); }
  void lock_MenuItem() { lock(); }
  void lock() { lock_.lock(); }
  void authentication_Begin() { lock_.authentication_Begin(); }
  void authenticationSheet_Open() { lock_.authenticationSheet_Open(); }
  void authenticationSheet_Close() { lock_.authenticationSheet_Close(); }
  [[nodiscard]] const PasswordSheetState& authenticationSheet() const noexcept {
    return lock_.State();
  }
  void authenticationSheet_ValidatePassword(std::string typed) {
    lock_.ValidatePassword(std::move(typed));
  }
  bool authenticationSheet_OK() { return lock_.OK(); }
  void authenticationSheet_Cancel() { lock_.Cancel(); }

  // --- app/accounts/account_passwords.h ---------------------------------------------------------
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& authenticatingAccount() const noexcept {
    return account_passwords_.authenticatingAccount();
  }
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) {
    account_passwords_.Account_Authenticate(account);
  }
  void Account_Lock(const std::shared_ptr<LDGRAccount>& account) {
    account_passwords_.Account_Lock(account);
  }
  [[nodiscard]] const PasswordSheetState& AccountAuthenticationSheet() const noexcept {
    return account_passwords_.State();
  }
  void accountAuthenticationSheet_ValidatePassword(std::string typed) {
    account_passwords_.ValidatePassword(std::move(typed));
  }
  bool AccountAuthenticationSheet_OK() {
    return account_passwords_.AccountAuthenticationSheet_OK();
  }
  bool accountAuthenticationSheet_OK_Button() { return AccountAuthenticationSheet_OK(); }
  void accountAuthenticationSheet_Cancel_Button() { AccountAuthenticationSheet_Cancel(); }
  void AccountAuthenticationSheet_Cancel() {
    account_passwords_.AccountAuthenticationSheet_Cancel();
  }
  void AccountAuthenticationSheet_Close() { account_passwords_.AccountAuthenticationSheet_Close(); }

  // --- app/shell/idle_watch.h -------------------------------------------------------------------
  [[nodiscard]] const RepeatingTimer& scheduleReminderTimer() const noexcept {
    return idle_.scheduleReminderTimer();
  }
  void userInputNotification() { idle_.userInputNotification(); }
  void Schedules_Evaluate() { idle_.Schedules_Evaluate(); }

  // --- app/shell/tabs.h -------------------------------------------------------------------------
  [[nodiscard]] const TabsState& TabViews() const noexcept { return tabs_.State(); }
  [[nodiscard]] RegisterKind ShownRegister() const noexcept { return tabs_.ShownRegister(); }
  void SelectTab(Tab tab) { tabs_.Select(tab); }
  void willSelectTabViewItem(std::string_view identifier) {
    tabs_.willSelectTabViewItem(identifier);
  }
  void entry_MenuItem() { tabs_.entry_MenuItem(); }
  void reconcile_MenuItem() { tabs_.reconcile_MenuItem(); }
  void EntryTab_Enter() { tabs_.EntryTab_Enter(); }
  void ReconcileTab_Enter() { tabs_.ReconcileTab_Enter(); }
  void ScheduleTab_Enter() { tabs_.ScheduleTab_Enter(); }
  void AccountSummaryTab_Enter() { tabs_.AccountSummaryTab_Enter(); }

  // --- app/accounts/accounts_drawer.h -----------------------------------------------------------
  [[nodiscard]] const AccountsDrawer& accountsDrawer() const noexcept { return drawer_; }
  void ToggleAccountsDrawer() { drawer_.ToggleAccountsDrawer(); }
  void drawerDidClose() { drawer_.drawerDidClose(); }
  void accountsDrawer_Accounts_Table_ClickedTableColumn(std::string_view column) {
    drawer_.ClickedTableColumn(column);
  }
  void accountsDrawer_Accounts_Table_Action(std::size_t row) { drawer_.Table_Action(row); }
  void accountsDrawer_Accounts_Table_DoubleClick(std::size_t row) {
    drawer_.Table_DoubleClick(row);
  }

  // --- app/shell/menus.h ------------------------------------------------------------------------
  [[nodiscard]] CommandsState Commands() const { return menus_.Commands(); }
  [[nodiscard]] std::vector<MenuItem> AccountMenu() const { return menus_.AccountMenu(); }
  void Account_Menu_Show_MenuItem(std::int32_t tag) { menus_.Account_Menu_Show_MenuItem(tag); }
  [[nodiscard]] std::vector<MenuItem> EntryTypeMenu() const { return menus_.EntryTypeMenu(); }
  void entryMenu_Types_MenuItem(std::int32_t tag) { menus_.entryMenu_Types_MenuItem(tag); }

  // --- filters/register_search.h ----------------------------------------------------------------
  [[nodiscard]] const RegisterSearchState& SearchState() const noexcept { return search_.State(); }
  void search_Field(std::optional<std::string_view> text) { Search_Field(text); }
  void Search_Field(std::optional<std::string_view> text) { search_.Search_Field(text); }
  void Search() { search_.Search(); }
  void search_Cancel_Button() { Search_Cancel(); }
  void Search_Cancel() { search_.Search_Cancel(); }
  void filter_Menu(std::int32_t tag) { Filter_Menu(tag); }
  void Filter_Menu(std::int32_t tag) { search_.Filter_Menu(tag); }
  void Filter_Select(std::int32_t type) { search_.Filter_Select(type); }
  void PopulateForFilterType(std::int32_t type) { search_.PopulateForFilterType(type); }
  void PopulateForFilter(const LDGRFilter* filter) { search_.PopulateForFilter(filter); }

  // --- filters/standard_filters.h ---------------------------------------------------------------
  [[nodiscard]] const StandardFilters& Filters() const noexcept { return filters_; }
  void Filters_Init() { filters_.Filters_Init(); }
  void Filters_DateFilters_Update() { filters_.Filters_DateFilters_Update(); }
  [[nodiscard]] std::int32_t NextAvailableFilterNumber() const {
    return filters_.NextAvailableFilterNumber();
  }
  [[nodiscard]] std::shared_ptr<LDGRFilter> FilterNumberToFilter(std::int32_t number) const {
    return filters_.FilterNumberToFilter(number);
  }
  [[nodiscard]] std::int32_t FilterNumberToMenuIndex(std::int32_t number) const {
    return filters_.FilterNumberToMenuIndex(number);
  }

  // --- The fields that are followed key by key --------------------------------------------------
  enum class TypedField : std::uint8_t {
    Search,
    Password,
    AccountPassword,
    PreferencesPassword,
    PreferencesPasswordAgain,
    ReminderLookAhead,
  };
  // The text of that field is `text` now.
  void controlTextDidChange(TypedField field, std::string_view text);
  void textDidBeginEditing(const void* field) { text_editing_.textDidBeginEditing(field); }
  void textDidEndEditing(const void* field) { text_editing_.textDidEndEditing(field); }

  // --- storage/accounts_store.h -----------------------------------------------------------------
  // To read: what is not loaded, what was kept, whether there is something to save.
  [[nodiscard]] const AccountsStore& accountsStore() const noexcept { return accounts_; }
  [[nodiscard]] const AccountList& accounts() const noexcept { return accounts_.accounts(); }
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const {
    return accounts_.AccountWithNumber(number);
  }
  [[nodiscard]] std::int32_t HighestAccountNumber() const {
    return accounts_.HighestAccountNumber();
  }
  [[nodiscard]] bool Accounts_Load() { return accounts_.Accounts_Load(); }
  // A locked application writes nothing.
  bool Accounts_Save() { return authenticated() && accounts_.Accounts_Save(); }
  bool Accounts_SaveToFilePath(const std::optional<std::string>& path) {
    return authenticated() && accounts_.Accounts_SaveToFilePath(path);
  }
  // As the store's; what was restored is then shown like what was launched with.
  [[nodiscard]] AccountsStore::RestoreResult Accounts_RestoreBackup(const std::string& name);

  // --- storage/preferences_store.h --------------------------------------------------------------
  [[nodiscard]] const PreferencesStore& preferencesStore() const noexcept { return preferences_; }
  [[nodiscard]] LDGRPreferences& preferences() { return LDGRPreferences::sharedPreferences(); }
  void Preferences_Init() { preferences_.Preferences_Init(); }
  bool Preferences_Save() { return authenticated() && preferences_.Preferences_Save(); }
  void Preferences_StoreAccountPrefs(const LDGRAccount* account) {
    preferences_.Preferences_StoreAccountPrefs(account);
  }

  // --- app/shell/preferences_sheet.h ------------------------------------------------------------
  bool PreferencesSheet_Open() { return preferences_sheet_.Open(); }
  [[nodiscard]] const PreferencesSheetState& preferencesSheet() const noexcept {
    return preferences_sheet_.State();
  }
  bool PreferencesSheet_SetField(std::string_view name, std::string_view text) {
    return preferences_sheet_.SetField(name, text);
  }
  bool PreferencesSheet_SelectTab(std::string_view tab) {
    return preferences_sheet_.SelectTab(tab);
  }
  void preferencesSheet_PasswordValidate(std::string password, std::string password_again) {
    preferences_sheet_.PasswordValidate(std::move(password), std::move(password_again));
  }
  void PreferencesSheet_DefaultAppearanceSettings() {
    preferences_sheet_.DefaultAppearanceSettings();
  }
  bool PreferencesSheet_OK() { return preferences_sheet_.OK(); }
  void PreferencesSheet_Cancel() { preferences_sheet_.Cancel(); }

  // --- app/shell/update_check.h -----------------------------------------------------------------
  [[nodiscard]] const UpdateState& Updates() const noexcept { return updates_.State(); }
  void CheckForUpdates() { updates_.CheckForUpdates(); }
  void CheckForUpdates_Auto() { updates_.CheckForUpdates_Auto(); }
  void UpdateWindow_Close() { updates_.CloseWindow(); }

  // --- app/accounts/account_selection.h ---------------------------------------------------------
  // Null when no account is selected.
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& SelectedAccount() const noexcept {
    return selection_.Selected();
  }
  [[nodiscard]] const std::string& WindowTitle() const noexcept { return selection_.WindowTitle(); }
  void Accounts_PostLoad() { selection_.Accounts_PostLoad(); }
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) {
    selection_.Account_Select(account);
  }
  void Account_Deselect() { selection_.Account_Deselect(); }
  void SetMainWindowTitleForAccount(const LDGRAccount* account) {
    selection_.SetMainWindowTitleForAccount(account);
  }

  // --- app/accounts/account_editing.h -----------------------------------------------------------
  bool account_Add_MenuItem() { return Account_Add(); }
  bool Account_Add() { return account_editing_.Account_Add(); }
  bool Account_Edit() { return account_editing_.Account_Edit(); }
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& editAccount() const noexcept {
    return account_editing_.editAccount();
  }
  [[nodiscard]] bool editAccountIsNew() const noexcept {
    return account_editing_.editAccountIsNew();
  }
  [[nodiscard]] const AccountEditSheetState& AccountEditSheet() const noexcept {
    return account_editing_.State();
  }
  void AccountEditSheet_Read(AccountEditSheetState::Typed typed) {
    account_editing_.Read(std::move(typed));
  }
  bool AccountEditSheet_ImportTypesFrom(const LDGRAccount& other) {
    return account_editing_.ImportTypesFrom(other);
  }
  bool AccountEditSheet_ImportDescriptionsFrom(const LDGRAccount& other) {
    return account_editing_.ImportDescriptionsFrom(other);
  }
  bool AccountEditSheet_ImportToFromsFrom(const LDGRAccount& other) {
    return account_editing_.ImportToFromsFrom(other);
  }
  bool AccountEditSheet_OK() { return account_editing_.AccountEditSheet_OK(); }
  void AccountEditSheet_Cancel() { account_editing_.AccountEditSheet_Cancel(); }

  // --- app/accounts/account_removal.h -----------------------------------------------------------
  bool Account_Remove() { return account_removal_.Account_Remove(); }

  // --- app/views/account_summary_tab.h ----------------------------------------------------------
  [[nodiscard]] const AccountSummaryTabState& Summaries() { return summary_tab_.State(); }
  bool AccountSummary_Select(std::size_t row) { return summary_tab_.Select(row); }
  std::shared_ptr<LDGRAccountSummary> AccountSummary_Add() { return summary_tab_.Add(); }
  std::shared_ptr<LDGRAccountSummary> AccountSummary_Duplicate() {
    return summary_tab_.Duplicate();
  }
  bool AccountSummary_Rename(std::string_view name) { return summary_tab_.Rename(name); }
  bool AccountSummary_Remove() { return summary_tab_.Remove(); }

  // --- app/views/account_summary_sheet.h --------------------------------------------------------
  [[nodiscard]] const AccountSummarySheetState& SummarySheet() const noexcept {
    return summary_sheet_.State();
  }
  bool AccountSummarySheet_Open() { return summary_sheet_.Open(); }
  void AccountSummarySheet_Populate() { summary_sheet_.Populate(); }
  void AccountSummarySheet_OptionsChanged() { summary_sheet_.OptionsChanged(); }
  bool AccountSummarySheet_OK() { return summary_sheet_.OK(); }
  void AccountSummarySheet_Cancel() { summary_sheet_.Cancel(); }

  // --- app/views/registers.h --------------------------------------------------------------------
  [[nodiscard]] LDGRAccountTableViewData& entryDataSource() noexcept { return registers_.Entry(); }
  [[nodiscard]] LDGRAccountTableViewData& reconcileDataSource() noexcept {
    return registers_.Reconcile();
  }
  // The one the commands for registers act on, also while another tab is showing.
  [[nodiscard]] LDGRAccountTableViewData& currentTableDataSource() noexcept {
    return registers_.Current();
  }
  [[nodiscard]] const LDGRAccountTableViewData& currentTableDataSource() const noexcept {
    return registers_.Current();
  }
  [[nodiscard]] RegisterKind CurrentRegisterKind() const noexcept {
    return registers_.CurrentKind();
  }
  // The entry of the selected row of the current register; null when no row is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> SelectedEntry() const {
    return currentTableDataSource().GetSelectedEntry();
  }
  // Null, and an entry that is not shown, selects no row.
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) {
    currentTableDataSource().SelectEntry(entry.get());
  }
  void currentTableDataSource_DoubleClick() { Entry_Edit(); }

  // --- registers/entry_speaker.h, app/entries/amount_fields.h -----------------------------------
  void SpeakEntry(const LDGRAccountEntry* selected) { speaker_.SpeakEntry(selected); }
  void StartSpeakingEntries() { speaker_.StartSpeakingEntries(); }
  void SpeakEntries() { speaker_.SpeakEntries(); }
  void speakNextEntry() { speaker_.speakNextEntry(); }
  void StopSpeech() { speaker_.StopSpeech(); }
  [[nodiscard]] bool IsReadingEntries() const noexcept { return speaker_.IsReading(); }
  [[nodiscard]] AmountFields& amountFields() noexcept { return amount_fields_; }

  // --- app/entries/entry_editing.h --------------------------------------------------------------
  bool Entry_Debit() { return editing_.New(EntryKind::Debit); }
  bool Entry_Deposit() { return editing_.New(EntryKind::Deposit); }
  bool Entry_Transfer() { return editing_.New(EntryKind::Transfer); }
  bool debitEntry_Button() { return Entry_Debit(); }
  bool debitEntry_MenuItem() { return Entry_Debit(); }
  bool depositEntry_Button() { return Entry_Deposit(); }
  bool depositEntry_MenuItem() { return Entry_Deposit(); }
  bool transferEntry_Button() { return Entry_Transfer(); }
  bool transferEntry_MenuItem() { return Entry_Transfer(); }
  bool Entry_Edit() { return editing_.Entry_Edit(); }
  void currentTableDataSource_Cleared_CheckBox(const std::shared_ptr<LDGRAccountEntry>& entry) {
    editing_.TurnClearedOver(entry);
  }
  void TweakDayField(DayField& field, std::int32_t month, std::int32_t year) noexcept {
    TweakDayFieldForMonthAndYear(field, month, year);
  }

  [[nodiscard]] const EntrySheetState& DebitSheet() const { return editing_.Debit().State(); }
  // What the last sheet was opened for.
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntry>& editEntry() const noexcept {
    return editing_.Edited().entry;
  }
  [[nodiscard]] bool editEntryIsNew() const noexcept { return editing_.Edited().is_new; }
  void DebitSheet_Populate() { editing_.Populate(editing_.Debit()); }
  bool DebitSheet_Open() { return editing_.Open(editing_.Debit()); }
  void DebitSheet_SaveValuesToEditEntry() { editing_.SaveValuesToEditEntry(editing_.Debit()); }
  void DebitSheet_Read(EntrySheetState::Typed typed) { editing_.Debit().Read(std::move(typed)); }
  bool debitSheet_OK_Button() { return DebitSheet_OK(); }
  bool DebitSheet_OK() { return editing_.OK(editing_.Debit()); }
  void DebitSheet_Cancel() { editing_.Cancel(editing_.Debit()); }
  bool DebitSheet_Debit() { return editing_.OKThenNew(editing_.Debit(), EntryKind::Debit); }
  bool DebitSheet_Deposit() { return editing_.OKThenNew(editing_.Debit(), EntryKind::Deposit); }
  bool DebitSheet_Transfer() { return editing_.OKThenNew(editing_.Debit(), EntryKind::Transfer); }
  void debitSheet_CheckNumber_Button() { editing_.CheckNumber_Button(); }
  [[nodiscard]] bool DebitSheet_IsSplit() const { return editing_.Debit().IsSplit(); }
  void DebitSheet_ClearSplit() { editing_.Debit().ClearSplit(); }
  void DebitSheet_Split_ClearSplit() { editing_.Debit().Split_ClearSplit(); }
  void DebitSheet_Split_UpdateTotal() { editing_.Debit().Split_UpdateTotal(); }
  void DebitSheet_Split_Table_Field() { editing_.Debit().Split_Table_Field(); }

  void DebitSheet_Description_Field() { editing_.SuggestForDescription(); }
  void DebitSheet_TakeSuggestion() { editing_.Debit().TakeSuggestion(); }

  [[nodiscard]] const EntrySheetState& DepositSheet() const { return editing_.Deposit().State(); }
  void DepositSheet_Populate() { editing_.Populate(editing_.Deposit()); }
  bool DepositSheet_Open() { return editing_.Open(editing_.Deposit()); }
  void DepositSheet_SaveValuesToEditEntry() { editing_.SaveValuesToEditEntry(editing_.Deposit()); }
  void DepositSheet_Read(EntrySheetState::Typed typed) {
    editing_.Deposit().Read(std::move(typed));
  }
  bool DepositSheet_OK() { return editing_.OK(editing_.Deposit()); }
  void DepositSheet_Cancel() { editing_.Cancel(editing_.Deposit()); }
  bool DepositSheet_Debit() { return editing_.OKThenNew(editing_.Deposit(), EntryKind::Debit); }
  bool DepositSheet_Deposit() { return editing_.OKThenNew(editing_.Deposit(), EntryKind::Deposit); }
  bool DepositSheet_Transfer() {
    return editing_.OKThenNew(editing_.Deposit(), EntryKind::Transfer);
  }
  [[nodiscard]] bool DepositSheet_IsSplit() const { return editing_.Deposit().IsSplit(); }
  void DepositSheet_ClearSplit() { editing_.Deposit().ClearSplit(); }
  void DepositSheet_Split_ClearSplit() { editing_.Deposit().Split_ClearSplit(); }
  void DepositSheet_Split_UpdateTotal() { editing_.Deposit().Split_UpdateTotal(); }
  void DepositSheet_Split_Table_Field() { editing_.Deposit().Split_Table_Field(); }
  void DepositSheet_Description_Field() { editing_.SuggestForDescription(); }
  void DepositSheet_TakeSuggestion() { editing_.Deposit().TakeSuggestion(); }

  [[nodiscard]] const TransferSheetState& TransferSheet() const {
    return editing_.Transfer().State();
  }
  void TransferSheet_Populate() { editing_.Populate(editing_.Transfer()); }
  bool TransferSheet_Open() { return editing_.Open(editing_.Transfer()); }
  void TransferSheet_SaveValuesToEditEntry() {
    editing_.SaveValuesToEditEntry(editing_.Transfer());
  }
  void TransferSheet_Read(TransferSheetState::Typed typed) {
    editing_.Transfer().Read(std::move(typed));
  }
  bool TransferSheet_OK() { return editing_.OK(editing_.Transfer()); }
  void TransferSheet_Cancel() { editing_.Cancel(editing_.Transfer()); }
  bool TransferSheet_Debit() { return editing_.OKThenNew(editing_.Transfer(), EntryKind::Debit); }
  bool TransferSheet_Deposit() {
    return editing_.OKThenNew(editing_.Transfer(), EntryKind::Deposit);
  }
  bool TransferSheet_Transfer() {
    return editing_.OKThenNew(editing_.Transfer(), EntryKind::Transfer);
  }

  // --- app/exchange/export_commands.h -----------------------------------------------------------
  void export_MenuItem(std::int32_t tag) { export_.export_MenuItem(tag); }
  WriteResult ExportQIF() { return export_.ExportQIF(); }
  WriteResult ExportText() { return export_.ExportText(); }
  WriteResult SaveAs() { return export_.SaveAs(); }
  bool Save() { return export_.Save(); }
  [[nodiscard]] std::optional<std::string> userEnteredFilename(const std::string& folder,
                                                               const std::string& name,
                                                               bool confirmed) {
    return export_.userEnteredFilename(folder, name, confirmed);
  }
  [[nodiscard]] LDGRQIFExportAccessoryView& sharedQIFExportAccessoryView() noexcept {
    return export_.QIFAccessory();
  }
  [[nodiscard]] LDGRExportAccessoryManager& exportAccessoryManager() noexcept {
    return export_.TextAccessory();
  }

  // --- app/exchange/qif_import_command.h, app/exchange/qif_import_controller.h ------------------
  bool QIFImport_MenuItem() { return QIFImport(); }
  bool QIFImport() { return import_command_.QIFImport(); }
  [[nodiscard]] EncodingMenu& ImportEncodings() noexcept { return import_command_.Encodings(); }
  // The options sheet and the review, with their operations.
  [[nodiscard]] LDGRQIFImportController& sharedQIFImportController() noexcept { return import_; }
  [[nodiscard]] const LDGRQIFImportController& sharedQIFImportController() const noexcept {
    return import_;
  }

  // --- app/entries/transfer_links.h -------------------------------------------------------------
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Transfer_LinkedEntry(
      const LDGRAccountEntry* entry) const {
    return links_.Transfer_LinkedEntry(entry);
  }
  void Account_SyncTransfers(LDGRAccount& account) { links_.Account_SyncTransfers(account); }
  void Accounts_SyncTransfers() { links_.Accounts_SyncTransfers(); }

  // --- app/entries/entry_removal.h --------------------------------------------------------------
  void EntryRemoveConfirm_Begin() { removal_.EntryRemoveConfirm_Begin(); }
  [[nodiscard]] const EntryRemoveSheetState& EntryRemoveSheet() const noexcept {
    return removal_.Confirm();
  }
  void EntryRemoveConfirm_OK() { removal_.EntryRemoveConfirm_OK(); }
  void EntryRemoveConfirm_Cancel() { removal_.EntryRemoveConfirm_Cancel(); }
  void TransferEntryRemoveConfirm_Begin() { removal_.TransferEntryRemoveConfirm_Begin(); }
  [[nodiscard]] const TransferEntryRemoveSheetState& TransferEntryRemoveSheet() const noexcept {
    return removal_.Transfer();
  }
  void TransferEntryRemoveConfirm_Yes() { removal_.TransferEntryRemoveConfirm_Yes(); }
  void TransferEntryRemoveConfirm_No() { removal_.TransferEntryRemoveConfirm_No(); }
  void TransferEntryRemoveConfirm_Cancel() { removal_.TransferEntryRemoveConfirm_Cancel(); }
  void Entry_Delete() { removal_.Entry_Delete(); }

  // --- app/schedules/schedules_tab.h ------------------------------------------------------------
  [[nodiscard]] LDGRScheduleTableViewData& scheduleDataSource() noexcept {
    return schedules_.Rows();
  }
  // Null when no scheduled entry is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountSchedule> SelectedSchedule() const {
    return schedules_.Rows().SelectedSchedule();
  }
  void SelectSchedule(const std::shared_ptr<LDGRAccountSchedule>& schedule) {
    schedules_.Rows().SelectSchedule(schedule.get());
  }
  void ScheduleRemoveConfirm_Begin() { schedules_.ScheduleRemoveConfirm_Begin(); }
  [[nodiscard]] const ScheduleRemoveSheetState& ScheduleRemoveSheet() const noexcept {
    return schedules_.Confirm();
  }
  void ScheduleRemoveConfirm_OK() { schedules_.ScheduleRemoveConfirm_OK(); }
  void ScheduleRemoveConfirm_Cancel() { schedules_.ScheduleRemoveConfirm_Cancel(); }
  void Schedule_Delete() { schedules_.Schedule_Delete(); }
  bool Schedule_Duplicate() { return schedules_.Schedule_Duplicate(); }
  bool Schedule_CommitNext() { return schedules_.Schedule_CommitNext(); }
  bool Schedule_SkipNext() { return schedules_.Schedule_SkipNext(); }

  // --- app/schedules/schedule_editing.h ---------------------------------------------------------
  bool Schedule_Debit() { return schedule_editing_.New(EntryKind::Debit); }
  bool Schedule_Deposit() { return schedule_editing_.New(EntryKind::Deposit); }
  bool Schedule_Transfer() { return schedule_editing_.New(EntryKind::Transfer); }
  bool schedule_Debit_MenuItem() { return Schedule_Debit(); }
  bool schedule_Deposit_MenuItem() { return Schedule_Deposit(); }
  bool schedule_Transfer_MenuItem() { return Schedule_Transfer(); }
  bool Schedule_Edit() { return schedule_editing_.Edit(); }
  [[nodiscard]] const ScheduleSheetState& ScheduleSheet() const noexcept {
    return schedule_editing_.State();
  }
  void ScheduleSheet_Read(ScheduleValues typed) { schedule_editing_.Read(std::move(typed)); }
  bool ScheduleSheet_OK() { return schedule_editing_.OK(); }
  void ScheduleSheet_Cancel() { schedule_editing_.Cancel(); }

  // --- app/schedules/schedule_reminder.h --------------------------------------------------------
  [[nodiscard]] const ScheduleReminderState& ScheduleReminderSheet() const noexcept {
    return reminder_.State();
  }
  bool ScheduleReminderSheet_Open() { return reminder_.Open(); }
  void ScheduleReminderSheet_Read(const std::vector<ReminderRow::Typed>& rows) {
    reminder_.Read(rows);
  }
  void ScheduleReminderSheet_MarkAll(bool is_marked) { reminder_.MarkAll(is_marked); }
  bool scheduleReminderSheet_LookAhead(std::string_view text) { return reminder_.LookAhead(text); }
  void scheduleReminderSheet_LookAheadType(std::int32_t tag) { reminder_.LookAheadType(tag); }
  void scheduleReminderSheet_BalanceMode(std::int32_t tag) { reminder_.BalanceModeChosen(tag); }
  bool ScheduleReminderSheet_Commit() { return reminder_.CommitMarked(); }
  bool ScheduleReminderSheet_CommitAll() { return reminder_.CommitAll(); }
  bool ScheduleReminderSheet_Skip() { return reminder_.SkipMarked(); }
  void ScheduleReminderSheet_Later() { reminder_.Later(); }
  void ScheduleReminderSheet_Dismiss() { reminder_.Dismiss(); }

  // --- app/entries/entry_reveal.h ---------------------------------------------------------------
  [[nodiscard]] const HiddenEntryState& HiddenEntry() const noexcept { return reveal_.State(); }
  void ShowHiddenEntry() { reveal_.ShowHiddenEntry(); }
  bool ShowOtherHalf() { return reveal_.ShowOtherHalf(); }

  // --- app/schedules/schedule_commit.h ----------------------------------------------------------
  [[nodiscard]] std::vector<DueOccurrence> Schedules_Due(DateNumber through) const {
    return schedule_commit_.Due(through);
  }
  bool Schedule_CommitOccurrence(const DueOccurrence& occurrence) {
    return schedule_commit_.Commit(occurrence);
  }
  bool Schedules_CommitAll(const std::vector<DueOccurrence>& occurrences) {
    return schedule_commit_.CommitAll(occurrences);
  }
  bool Schedule_SkipOccurrence(const DueOccurrence& occurrence) {
    return schedule_commit_.Skip(occurrence);
  }
  bool Schedules_SkipAll(const std::vector<DueOccurrence>& occurrences) {
    return schedule_commit_.SkipAll(occurrences);
  }

  // --- app/views/balance_field.h, app/views/reconcile_tab.h -------------------------------------
  void AccountBalance_PopUp_Populate(std::int32_t mode) {
    balance_field_.AccountBalance_PopUp_Populate(mode);
  }
  void AccountBalance_PopUp(std::int32_t tag) { balance_field_.AccountBalance_PopUp(tag); }
  [[nodiscard]] BalanceFieldState AccountBalance_Field() const { return balance_field_.State(); }
  [[nodiscard]] const ReconcileTabState& ReconcileTab_Figures() { return reconcile_tab_.State(); }
  bool ReconcileTab_StatementBalance_EndEditing(double balance) {
    return reconcile_tab_.StatementBalance_EndEditing(balance);
  }
  bool currentTableDataSource_Cleared_Key() { return reconcile_tab_.TurnClearedOverAndMoveOn(); }

  // --- app/shell/backups_list.h -----------------------------------------------------------------
  [[nodiscard]] std::vector<BackupRow> Backups() { return backups_.Rows(); }

  // --- app/shell/printing.h ---------------------------------------------------------------------
  [[nodiscard]] PrintKind Print_KindShown() const noexcept { return printing_.KindShown(); }
  [[nodiscard]] bool Print_IsPossible(PrintKind kind) const { return printing_.CanPrint(kind); }
  [[nodiscard]] std::optional<Pages> Print_Pages(PrintKind kind, const PrintOptions& options,
                                                 const TextMetric& metric) {
    return printing_.MakePages(kind, options, metric);
  }

  // --- app/face/refresh.h -----------------------------------------------------------------------
  void AccountBalance_Field_Update() { refresh_.AccountBalance_Field_Update(); }
  void ReconcileTab_UpdateBalances() { refresh_.ReconcileTab_UpdateBalances(); }
  void AccountsList_Redraw() { refresh_.AccountsList_Redraw(); }
  void Account_Menu_Show_Menu_Populate() { refresh_.Account_Menu_Show_Menu_Populate(); }
  void entryMenu_Types_Menu_Populate() { refresh_.entryMenu_Types_Menu_Populate(); }

 private:
  // Answers what the components ask.
  struct Hosts;

  std::unique_ptr<Hosts> hosts_;
  FrontEndSlot front_end_;
  MainWindowSlot window_;
  ModalWatch modal_;
  LDGRApplication application_;
  SheetSlot sheets_{front_end_};
  SaveGate gate_;
  DataFolderLock data_lock_;
  AccountsStore accounts_;
  PreferencesStore preferences_;
  Refresh refresh_;
  TransferLinks links_;
  AccountSelection selection_;
  AccountEditing account_editing_;
  EntryEditing editing_;
  EntryRemoval removal_;
  EntryReveal reveal_;
  ScheduleCommit schedule_commit_;
  ExportCommands export_;
  LDGRQIFImportController import_;
  SchedulesTab schedules_;
  ScheduleEditing schedule_editing_;
  ScheduleReminder reminder_;
  BalanceField balance_field_;
  ReconcileTab reconcile_tab_;
  BackupsList backups_;
  AccountPasswords account_passwords_;
  AccountRemoval account_removal_;
  AccountSummaryTab summary_tab_;
  AccountSummarySheet summary_sheet_;
  ApplicationLock lock_;
  PreferencesSheet preferences_sheet_;
  UpdateCheck updates_;
  AccountsDrawer drawer_;
  Menus menus_;
  RegisterSearch search_;
  StandardFilters filters_;
  Registers registers_;
  EntrySpeaker speaker_;
  AmountFields amount_fields_;
  Tabs tabs_;
  Printing printing_;
  IdleWatch idle_;
  QifImportCommand import_command_;
  TextEditing text_editing_;
  // Last: what it brings up must be there.
  Lifecycle lifecycle_;
};

}  // namespace tallyfold
