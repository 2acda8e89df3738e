#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/account_editing.h"
#include "app/account_selection.h"
#include "app/entry_editing.h"
#include "app/entry_removal.h"
#include "app/front_end_slot.h"
#include "app/refresh.h"
#include "app/schedule_adding.h"
#include "app/schedule_commit.h"
#include "app/services.h"
#include "app/sheet_slot.h"
#include "app/transfer_links.h"
#include "model/day_field.h"
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

  // --- app/front_end.h, app/sheet_slot.h: who shows the application, and which sheet is open -----
  // Null (as at first) for nobody. It must outlive its stay here.
  void SetFrontEnd(FrontEnd* front_end) noexcept { front_end_.Set(front_end); }
  [[nodiscard]] Sheet OpenSheet() const noexcept { return sheets_.Current(); }

  // --- storage/data_folder_lock.h ----------------------------------------------------------------
  // The first step of the launch. False when another copy works on the same data: the program ends.
  [[nodiscard]] bool LockDataFolder() { return data_lock_.Acquire(); }

  // --- storage/accounts_store.h ------------------------------------------------------------------
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
  bool Accounts_Save() { return accounts_.Accounts_Save(); }
  bool Accounts_SaveToFilePath(const std::optional<std::string>& path) {
    return accounts_.Accounts_SaveToFilePath(path);
  }

  // --- storage/preferences_store.h ---------------------------------------------------------------
  [[nodiscard]] const PreferencesStore& preferencesStore() const noexcept { return preferences_; }
  [[nodiscard]] LDGRPreferences& preferences() { return LDGRPreferences::sharedPreferences(); }
  void Preferences_Init() { preferences_.Preferences_Init(); }
  bool Preferences_Save() { return preferences_.Preferences_Save(); }
  void Preferences_StoreAccountPrefs(const LDGRAccount* account) {
    preferences_.Preferences_StoreAccountPrefs(account);
  }

  // --- app/account_selection.h -------------------------------------------------------------------
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

  // --- app/account_editing.h ---------------------------------------------------------------------
  bool Account_Add() { return account_editing_.Account_Add(); }
  bool Account_Edit() { return account_editing_.Account_Edit(); }
  [[nodiscard]] const AccountEditSheetState& AccountEditSheet() const noexcept {
    return account_editing_.State();
  }
  void AccountEditSheet_Read(AccountEditSheetState::Typed typed) {
    account_editing_.Read(std::move(typed));
  }
  bool AccountEditSheet_OK() { return account_editing_.AccountEditSheet_OK(); }
  void AccountEditSheet_Cancel() { account_editing_.AccountEditSheet_Cancel(); }

  // --- The selected row of the current register --------------------------------------------------
  // Null when no row is selected.
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntry>& SelectedEntry() const noexcept {
    return selected_entry_;
  }
  // An entry of the selected account; null selects no row.
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry);

  // --- app/entry_editing.h -----------------------------------------------------------------------
  bool Entry_Debit() { return editing_.New(EntryKind::Debit); }
  bool Entry_Deposit() { return editing_.New(EntryKind::Deposit); }
  bool Entry_Transfer() { return editing_.New(EntryKind::Transfer); }
  bool Entry_Edit() { return editing_.Entry_Edit(); }
  void currentTableDataSource_Cleared_CheckBox(const std::shared_ptr<LDGRAccountEntry>& entry) {
    editing_.TurnClearedOver(entry);
  }
  void TweakDayField(DayField& field, std::int32_t month, std::int32_t year) noexcept {
    TweakDayFieldForMonthAndYear(field, month, year);
  }

  [[nodiscard]] const EntrySheetState& DebitSheet() const { return editing_.Debit().State(); }
  void DebitSheet_Read(EntrySheetState::Typed typed) { editing_.Debit().Read(std::move(typed)); }
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

  [[nodiscard]] const EntrySheetState& DepositSheet() const { return editing_.Deposit().State(); }
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

  [[nodiscard]] const TransferSheetState& TransferSheet() const {
    return editing_.Transfer().State();
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

  // --- app/transfer_links.h ----------------------------------------------------------------------
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Transfer_LinkedEntry(
      const LDGRAccountEntry* entry) const {
    return links_.Transfer_LinkedEntry(entry);
  }
  void Account_SyncTransfers(LDGRAccount& account) { links_.Account_SyncTransfers(account); }
  void Accounts_SyncTransfers() { links_.Accounts_SyncTransfers(); }

  // --- app/entry_removal.h -----------------------------------------------------------------------
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

  // --- app/schedule_adding.h ---------------------------------------------------------------------
  std::shared_ptr<LDGRAccountSchedule> Schedule_Add(const NewSchedule& values) {
    return schedule_adding_.Add(values);
  }

  // --- app/schedule_commit.h ---------------------------------------------------------------------
  [[nodiscard]] std::vector<DueOccurrence> Schedules_Due(DateNumber through) const {
    return schedule_commit_.Due(through);
  }
  bool Schedule_CommitOccurrence(const DueOccurrence& occurrence,
                                 std::shared_ptr<LDGRAccountEntry> edited = nullptr) {
    return schedule_commit_.Commit(occurrence, std::move(edited));
  }
  bool Schedule_SkipOccurrence(const DueOccurrence& occurrence) {
    return schedule_commit_.Skip(occurrence);
  }

  // --- app/refresh.h -----------------------------------------------------------------------------
  void AccountBalance_Field_Update() { refresh_.AccountBalance_Field_Update(); }
  void ReconcileTab_UpdateBalances() { refresh_.ReconcileTab_UpdateBalances(); }
  void AccountsList_Redraw() { refresh_.AccountsList_Redraw(); }
  void entryMenu_Types_Menu_Populate() { refresh_.entryMenu_Types_Menu_Populate(); }

 private:
  // Answers what the components ask.
  struct Hosts;

  Services services_;
  std::unique_ptr<Hosts> hosts_;
  FrontEndSlot front_end_;
  SheetSlot sheets_{front_end_};
  std::shared_ptr<LDGRAccountEntry> selected_entry_;
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
  ScheduleAdding schedule_adding_;
  ScheduleCommit schedule_commit_;
};

}  // namespace tallyfold
