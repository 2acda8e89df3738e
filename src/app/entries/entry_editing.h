#pragma once

#include <memory>

#include "app/desk.h"
#include "app/entries/edited_entry.h"
#include "app/entries/entry_defaults.h"
#include "app/entries/entry_sheet.h"
#include "app/entries/transfer_sheet.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "platform/alerts.h"

namespace tallyfold {

// Adds entries to the selected account and changes them, through the debit, the deposit and the
// transfer sheet. The account changes at OK alone, all at once or not at all.
class EntryEditing final : private EditSheet::Keeper {
 public:
  EntryEditing(Desk& desk, Ledger& ledger, const TransferLinks& links, Alerts& alerts,
               SheetSlot& sheets, Refresh& refresh, Announcer& announcer);
  EntryEditing(const EntryEditing&) = delete;
  EntryEditing& operator=(const EntryEditing&) = delete;

  // What a sheet does is an operation of it without the sheet's name: DebitSheet_Open,
  // DebitSheet_SaveValuesToEditEntry and DebitSheet_IsSplit, DepositSheet_Open,
  // DepositSheet_SaveValuesToEditEntry and DepositSheet_IsSplit, TransferSheet_Open and
  // TransferSheet_SaveValuesToEditEntry. Those that can be ordered have their whole names in
  // app/commands.
  [[nodiscard]] EntrySheet& Debit() noexcept { return debit_; }
  [[nodiscard]] const EntrySheet& Debit() const noexcept { return debit_; }
  [[nodiscard]] EntrySheet& Deposit() noexcept { return deposit_; }
  [[nodiscard]] const EntrySheet& Deposit() const noexcept { return deposit_; }
  [[nodiscard]] TransferSheet& Transfer() noexcept { return transfer_; }
  [[nodiscard]] const TransferSheet& Transfer() const noexcept { return transfer_; }
  // What the last sheet was opened for; its entry is null before the first.
  [[nodiscard]] const EditedEntry& Edited() const noexcept { return edited_; }
  // Whether that is not in its account before OK.
  [[nodiscard]] bool editEntryIsNew() const noexcept { return edited_.is_new; }

  // Opens the sheet for a new entry with its defaults. False, and nothing changes, when no account
  // is selected or a sheet is open.
  bool New(EntryKind kind);
  // Opens the sheet for a new transfer of that account, whichever is selected; at OK nothing else
  // is selected than before. False, and nothing changes, for an account that is locked or not
  // there, and when a sheet is open.
  bool NewTransferIn(const std::shared_ptr<LDGRAccount>& account);
  // Opens the sheet for the selected entry. False when none is selected, when it is of no kind,
  // when no account is selected or a sheet is open.
  bool Entry_Edit();
  // Opens the sheet for an entry that belongs to no account yet but to an owner, who takes what is
  // typed in the account's place. Only debits and deposits; else false, as for Entry_Edit().
  bool EditOwned(EditedEntry edited);

  // Turns the cleared mark of an entry of the selected account over. Null does nothing.
  void TurnClearedOver(const std::shared_ptr<LDGRAccountEntry>& entry);

  // The description of the debit or deposit sheet, whichever is open, was typed or chosen, or
  // editing in it begins anew.
  void SuggestForDescription();
  // As EntrySheet::Gather(), for that sheet.
  void Gather();
  void DropSuggestion();

  // The check box of the debit sheet was ticked or unticked.
  void CheckNumber_Button();

 private:
  void Populate(EditSheet& sheet) override;
  bool Open(EditSheet& sheet) override;
  void SaveValuesToEditEntry(EditSheet& sheet) override;
  bool OK(EditSheet& sheet) override;
  bool OKThenNew(EditSheet& sheet, EntryKind kind) override;
  void Cancel(EditSheet& sheet) override;

  // Asks before a resolved entry gets another amount or day. False where the sheet stays as it is.
  [[nodiscard]] bool MayChange(const EditSheet& sheet);
  // Undoes SaveValuesToEditEntry().
  void TakeSavedBack();
  bool BeginNew(EntryKind kind, const std::shared_ptr<LDGRAccount>& account, bool is_for_any);
  [[nodiscard]] bool IsOpenToUser(const std::shared_ptr<LDGRAccount>& account) const;
  bool Begin(EditedEntry edited);
  void Close(EditSheet& sheet);
  // The debit or the deposit sheet, whichever is open, or null.
  [[nodiscard]] EntrySheet* OpenEntrySheet() noexcept;
  [[nodiscard]] bool IsFor(const EditSheet& sheet) noexcept;
  [[nodiscard]] EditSheet* SheetForEntry(const LDGRAccountEntry& entry) noexcept;
  // Why the edited entry cannot be stored any more; "" when it can.
  [[nodiscard]] std::string CheckTarget() const;

  Desk& desk_;
  Ledger& ledger_;
  Alerts& alerts_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  EntrySheet debit_;
  EntrySheet deposit_;
  TransferSheet transfer_;
  EditedEntry edited_;
  // What an entry of the account held before a sheet was written into it without OK.
  std::shared_ptr<LDGRAccountEntry> before_saving_;
};

}  // namespace tallyfold
