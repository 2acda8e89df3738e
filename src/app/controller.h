#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/account_edit_sheet_state.h"
#include "app/due_occurrence.h"
#include "app/entry_remove_sheet_state.h"
#include "app/entry_sheet_state.h"
#include "app/front_end.h"
#include "app/services.h"
#include "app/transfer_sheet_state.h"
#include "model/date_number.h"

namespace tallyfold {

class LDGRAccount;
class LDGRAccountEntry;
class LDGRPreferences;

// The application: its accounts, its preferences and everything the user does with them. Each
// operation belongs to a component, under whose name it is listed here; a component has a header of
// its own with the full contract of its operations. Front ends and tests drive the same operations
// and read the same states.
//
// Everything runs on the main thread. Operations are not reentrant.
class LDGRController {
 public:
  // The services must outlive the controller. The controller becomes sharedController().
  explicit LDGRController(const Services& services);
  LDGRController(const LDGRController&) = delete;
  LDGRController& operator=(const LDGRController&) = delete;
  ~LDGRController();

  // The one that was made last and still lives; null for none.
  [[nodiscard]] static LDGRController* sharedController() noexcept;

  // Who shows the application; null (as at first) for nobody. It must outlive its stay here.
  void SetFrontEnd(FrontEnd* front_end) noexcept;
  // The sheet that is open, if any.
  [[nodiscard]] Sheet OpenSheet() const noexcept;

  // --- Accounts file (storage/accounts_store.h) -------------------------------------------------
  [[nodiscard]] const std::vector<std::shared_ptr<LDGRAccount>>& accounts() const noexcept;
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const;
  [[nodiscard]] std::int32_t HighestAccountNumber() const noexcept;
  void Accounts_Load();
  void Accounts_Save();
  void Accounts_SaveToFilePath(const std::string& path);

  // --- Preferences (storage/preferences_store.h) ------------------------------------------------
  [[nodiscard]] LDGRPreferences& preferences() noexcept;
  void Preferences_Init();
  void Preferences_Save();

  // --- Account selection (app/account_selection.h) ----------------------------------------------
  // Null when no account is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccount> SelectedAccount() const;
  void Accounts_PostLoad();
  void Account_Select(const std::shared_ptr<LDGRAccount>& account);
  void Account_Deselect();

  // --- Account management (app/account_editing.h) -----------------------------------------------
  // Whether the sheet has opened.
  bool Account_Add();
  bool Account_Edit();
  [[nodiscard]] const AccountEditSheetState& AccountEditSheet() const noexcept;
  void AccountEditSheet_Read(AccountEditSheetState::Typed typed);
  // Whether the sheet has closed.
  bool AccountEditSheet_OK();
  void AccountEditSheet_Cancel();

  // --- The current register ---------------------------------------------------------------------
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> SelectedEntry() const;
  // Null selects none.
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry);
  // The check box of the cleared column: turns the entry's mark over.
  void currentTableDataSource_Cleared_CheckBox(const std::shared_ptr<LDGRAccountEntry>& entry);

  // --- Entry editing (app/entry_editing.h) ------------------------------------------------------
  // Whether a sheet has opened.
  bool Entry_Debit();
  bool Entry_Deposit();
  bool Entry_Transfer();
  bool Entry_Edit();

  [[nodiscard]] const EntrySheetState& DebitSheet() const noexcept;
  void DebitSheet_Read(EntrySheetState::Typed typed);
  // Whether the sheet has closed; EntrySheetState::problem tells why not.
  bool DebitSheet_OK();
  void DebitSheet_Cancel();
  // OK and then a new entry: whether that one's sheet has opened.
  bool DebitSheet_Debit();
  bool DebitSheet_Deposit();
  bool DebitSheet_Transfer();
  void debitSheet_CheckNumber_Button();
  [[nodiscard]] bool DebitSheet_IsSplit() const noexcept;
  void DebitSheet_ClearSplit();
  void DebitSheet_Split_ClearSplit();
  void DebitSheet_Split_UpdateTotal();
  void DebitSheet_Split_Table_Field();

  [[nodiscard]] const EntrySheetState& DepositSheet() const noexcept;
  void DepositSheet_Read(EntrySheetState::Typed typed);
  bool DepositSheet_OK();
  void DepositSheet_Cancel();
  bool DepositSheet_Debit();
  bool DepositSheet_Deposit();
  bool DepositSheet_Transfer();
  [[nodiscard]] bool DepositSheet_IsSplit() const noexcept;
  void DepositSheet_ClearSplit();
  void DepositSheet_Split_ClearSplit();
  void DepositSheet_Split_UpdateTotal();
  void DepositSheet_Split_Table_Field();

  [[nodiscard]] const TransferSheetState& TransferSheet() const noexcept;
  void TransferSheet_Read(TransferSheetState::Typed typed);
  bool TransferSheet_OK();
  void TransferSheet_Cancel();
  bool TransferSheet_Debit();
  bool TransferSheet_Deposit();
  bool TransferSheet_Transfer();

  // --- Transfer links (app/transfer_links.h) ----------------------------------------------------
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Transfer_LinkedEntry(
      const LDGRAccountEntry* entry) const;
  void Account_SyncTransfers(LDGRAccount& account);
  void Accounts_SyncTransfers();

  // --- Entry removal (app/entry_removal.h) ------------------------------------------------------
  // Removes the selected entry, after the questions that apply. Which sheet has opened, if any, is
  // told by OpenSheet().
  void EntryRemoveConfirm_Begin();
  [[nodiscard]] const EntryRemoveSheetState& EntryRemoveSheet() const noexcept;
  void EntryRemoveConfirm_OK();
  void EntryRemoveConfirm_Cancel();
  [[nodiscard]] const TransferEntryRemoveSheetState& TransferEntryRemoveSheet() const noexcept;
  void TransferEntryRemoveConfirm_Yes();
  void TransferEntryRemoveConfirm_No();
  void TransferEntryRemoveConfirm_Cancel();
  void Entry_Delete();

  // --- Due occurrences (app/schedule_commit.h) --------------------------------------------------
  [[nodiscard]] std::vector<DueOccurrence> Schedules_Due(DateNumber through) const;
  bool Schedule_CommitOccurrence(const DueOccurrence& occurrence,
                                 std::shared_ptr<LDGRAccountEntry> edited = nullptr);
  bool Schedule_SkipOccurrence(const DueOccurrence& occurrence);
};

}  // namespace tallyfold
