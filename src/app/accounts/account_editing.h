#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "app/accounts/account_edit_sheet_state.h"
#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"

namespace tallyfold {

// Adds accounts and changes them through the account sheet. The sheet edits a copy of what it
// shows; OK writes it into the account itself, whose object stays the same.
class AccountEditing {
 public:
  AccountEditing(Desk& desk, Ledger& ledger, AccountSelection& selection,
                 const TransferLinks& links, SheetSlot& sheets, Refresh& refresh,
                 Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        selection_(selection),
        links_(links),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer) {}
  AccountEditing(const AccountEditing&) = delete;
  AccountEditing& operator=(const AccountEditing&) = delete;

  [[nodiscard]] const AccountEditSheetState& State() const noexcept { return state_; }
  // The account the sheet is open for, which OK changes; null while it is closed.
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& editAccount() const noexcept {
    return edit_account_;
  }
  [[nodiscard]] bool editAccountIsNew() const noexcept { return state_.is_new; }
  // Takes over what the user typed and tells anew whether OK is enabled.
  void Read(AccountEditSheetState::Typed typed);

  // Open the sheet for a new account with a name no other has, or for the selected account. False
  // while a sheet is open; the second also when no account is selected.
  bool Account_Add();
  bool Account_Edit();

  // Add to the sheet what another account has and the sheet lacks: entry types by name and kind,
  // which come back where they are only out of use, or texts of the user's own lists, ignoring
  // case. False, and nothing changes, for a locked account.
  bool ImportTypesFrom(const LDGRAccount& other);
  bool ImportDescriptionsFrom(const LDGRAccount& other);
  bool ImportToFromsFrom(const LDGRAccount& other);

  // Writes the sheet into the account and closes it; a new account joins the list and is selected.
  // False when the sheet is not open, or stays open: its state then says why, unless a field of the
  // front end has refused its text.
  bool AccountEditSheet_OK();
  // Closes the sheet; nothing has changed.
  void AccountEditSheet_Cancel();

 private:
  [[nodiscard]] std::string NewAccountName() const;
  bool Begin(std::shared_ptr<LDGRAccount> account, bool is_new);
  void AccountEditSheet_Populate();
  bool AccountEditSheet_Open();
  void Close();
  void SaveValues();

  Desk& desk_;
  Ledger& ledger_;
  AccountSelection& selection_;
  const TransferLinks& links_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  AccountEditSheetState state_;
  std::shared_ptr<LDGRAccount> edit_account_;
};

}  // namespace tallyfold
