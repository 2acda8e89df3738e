#include "app/entries/entry_editing.h"

#include <algorithm>
#include <utility>

#include "app/entries/resolved_question.h"
#include "ledger/change.h"
#include "model/account_entry.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

std::string_view NameOfStep(Sheet sheet, bool is_new) {
  if (!is_new) return "Edit Entry";
  if (sheet == Sheet::Debit) return "New Debit";
  return sheet == Sheet::Deposit ? "New Deposit" : "New Transfer";
}

}  // namespace

EntryEditing::EntryEditing(Desk& desk, Ledger& ledger, const TransferLinks& links, Alerts& alerts,
                           SheetSlot& sheets, Refresh& refresh, Announcer& announcer)
    : desk_(desk),
      ledger_(ledger),
      alerts_(alerts),
      sheets_(sheets),
      refresh_(refresh),
      announcer_(announcer),
      debit_(EntrySheet::Kind::Debit, *this, announcer),
      deposit_(EntrySheet::Kind::Deposit, *this, announcer),
      transfer_(*this, desk, links, announcer) {}

bool EntryEditing::New(EntryKind kind) {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  return account != nullptr && BeginNew(kind, account, false);
}

bool EntryEditing::NewTransferIn(const std::shared_ptr<LDGRAccount>& account) {
  const Announcer::Operation operation(announcer_);
  return IsOpenToUser(account) && BeginNew(EntryKind::Transfer, account, true);
}

bool EntryEditing::IsOpenToUser(const std::shared_ptr<LDGRAccount>& account) const {
  const auto& accounts = desk_.accounts();
  return account != nullptr && desk_.IsUnlocked() && !account->IsLocked() &&
         std::find(accounts.begin(), accounts.end(), account) != accounts.end();
}

bool EntryEditing::BeginNew(EntryKind kind, const std::shared_ptr<LDGRAccount>& account,
                            bool is_for_any) {
  if (!sheets_.IsFree()) return false;
  // The number is taken for good, whether or not the sheet is confirmed.
  Change change(ledger_);
  const std::int32_t number = change.NextNumber(account);
  change.Close();
  return Begin({.entry = NewEntryWithDefaults(kind, number, *account, desk_.preferences()),
                .is_new = true,
                .account = account,
                .is_for_any_account = is_for_any});
}

bool EntryEditing::Entry_Edit() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  const auto entry = desk_.SelectedEntry();
  if (account == nullptr || entry == nullptr || !sheets_.IsFree()) return false;
  return SheetForEntry(*entry) != nullptr && Begin({entry, false, account});
}

bool EntryEditing::EditOwned(EditedEntry edited) {
  const Announcer::Operation operation(announcer_);
  const bool has_sheet = edited.entry != nullptr && !edited.account.expired() &&
                         (edited.entry->IsDebit() || edited.entry->IsDeposit());
  return has_sheet && sheets_.IsFree() && Begin(std::move(edited));
}

bool EntryEditing::Begin(EditedEntry edited) {
  edited_ = std::move(edited);
  EditSheet* sheet = SheetForEntry(*edited_.entry);
  Populate(*sheet);
  return Open(*sheet);
}

EditSheet* EntryEditing::SheetForEntry(const LDGRAccountEntry& entry) noexcept {
  if (entry.IsDebit()) return &debit_;
  if (entry.IsDeposit()) return &deposit_;
  if (entry.IsTransfer()) return &transfer_;
  return nullptr;
}

bool EntryEditing::IsFor(const EditSheet& sheet) noexcept {
  return edited_.entry != nullptr && !edited_.account.expired() &&
         SheetForEntry(*edited_.entry) == &sheet;
}

void EntryEditing::Populate(EditSheet& sheet) {
  if (IsFor(sheet)) sheet.Fill(edited_, *edited_.account.lock(), desk_.preferences());
}

bool EntryEditing::Open(EditSheet& sheet) {
  const Announcer::Operation operation(announcer_);
  if (!IsFor(sheet) || !sheets_.Open(sheet.Which(), [&sheet] { sheet.Cancel(); })) return false;
  sheet.SetOpen(true);
  announcer_.Changed(sheet.StateArea());
  return true;
}

void EntryEditing::SaveValuesToEditEntry(EditSheet& sheet) {
  if (sheets_.Current() != sheet.Which() || !IsFor(sheet) || sheet.CheckTyped()) return;
  if (!editEntryIsNew() && !before_saving_) before_saving_ = edited_.entry->Image();
  sheet.Store(edited_, *edited_.account.lock());
}

void EntryEditing::TakeSavedBack() {
  if (before_saving_ != nullptr) edited_.entry->ExchangeWith(*before_saving_);
  before_saving_ = nullptr;
}

void EntryEditing::Close(EditSheet& sheet) {
  sheet.SetOpen(false);
  announcer_.Changed(sheet.StateArea());
  sheets_.Close(sheet.Which());
}

bool EntryEditing::OK(EditSheet& sheet) {
  const Announcer::Operation operation(announcer_);
  if (sheets_.Current() != sheet.Which() || !announcer_.EndEditing(sheet.Which())) return false;
  std::string text = CheckTarget();
  auto problem =
      text.empty() ? sheet.CheckTyped() : std::make_optional(Problem{"", std::move(text)});
  const bool is_refused = problem.has_value();
  sheet.SetProblem(std::move(problem));
  if (is_refused) {
    announcer_.Changed(sheet.StateArea());
    return false;
  }

  const auto account = edited_.account.lock();
  const auto entry = edited_.entry;
  TakeSavedBack();
  if (!MayChange(sheet)) return false;
  if (edited_.owner != nullptr) {
    sheet.Store(edited_, *account);
    Close(sheet);
    edited_.owner->TakeEdited(*entry);
    return true;
  }
  Change change(ledger_, NameOfStep(sheet.Which(), editEntryIsNew()), account);
  if (!editEntryIsNew()) change.Edit(account, entry);
  sheet.StoreIn(change, edited_, *account);
  if (editEntryIsNew()) change.Add(account, entry);
  if (sheet.Which() == Sheet::Transfer) {
    change.EditOptions(account).setLastTransferAccount(entry->GetTransferAccount());
    account->setIsLastTransferOrigin(entry->IsTransferOrigin());
  }
  change.Close();
  Close(sheet);
  if (account == desk_.SelectedAccount()) {
    refresh_.EntrySaved(entry, editEntryIsNew());
  } else {
    refresh_.EntrySavedElsewhere();
  }
  return true;
}

bool EntryEditing::MayChange(const EditSheet& sheet) {
  const LDGRAccountEntry& entry = *edited_.entry;
  const bool is_stored = !editEntryIsNew() && edited_.owner == nullptr;
  if (!is_stored || !entry.GetCleared() || !sheet.ChangesAmountOrDay(entry)) return true;
  // The program may have closed the sheet in the meantime.
  return AgreesToChangeResolved(alerts_) && sheets_.Current() == sheet.Which() &&
         CheckTarget().empty();
}

std::string EntryEditing::CheckTarget() const {
  const auto account = edited_.account.lock();
  const bool is_there =
      edited_.is_for_any_account ? IsOpenToUser(account) : account == desk_.SelectedAccount();
  if (account == nullptr || !is_there) {
    return LocalizedText("The account is no longer selected.");
  }
  if (edited_.owner != nullptr) return edited_.owner->CheckEdited(*edited_.entry);
  const auto& entries = account->GetEntries();
  if (!editEntryIsNew() &&
      std::find(entries.begin(), entries.end(), edited_.entry) == entries.end()) {
    return LocalizedText("The entry has been removed.");
  }
  return "";
}

bool EntryEditing::OKThenNew(EditSheet& sheet, EntryKind kind) {
  const Announcer::Operation operation(announcer_);
  return OK(sheet) && edited_.owner == nullptr && New(kind);
}

void EntryEditing::Cancel(EditSheet& sheet) {
  const Announcer::Operation operation(announcer_);
  if (sheets_.Current() != sheet.Which()) return;
  TakeSavedBack();
  Close(sheet);
  if (editEntryIsNew()) edited_.entry = nullptr;
}

void EntryEditing::TurnClearedOver(const std::shared_ptr<LDGRAccountEntry>& entry) {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || entry == nullptr) return;
  Change change(ledger_, entry->GetCleared() ? "Unresolve Entry" : "Resolve Entry", account);
  change.Edit(account, entry).SetCleared(!entry->GetCleared());
  change.Close();
  refresh_.EntryMarked();
}

EntrySheet* EntryEditing::OpenEntrySheet() noexcept {
  if (sheets_.Current() == Sheet::Debit) return &debit_;
  return sheets_.Current() == Sheet::Deposit ? &deposit_ : nullptr;
}

void EntryEditing::SuggestForDescription() {
  const auto account = edited_.account.lock();
  if (auto* sheet = OpenEntrySheet(); sheet != nullptr && account != nullptr) {
    sheet->SuggestForDescription(edited_, *account);
  }
}

void EntryEditing::Gather() {
  const auto account = edited_.account.lock();
  if (auto* sheet = OpenEntrySheet(); sheet != nullptr && account != nullptr) {
    sheet->Gather(edited_, *account);
  }
}

void EntryEditing::DropSuggestion() {
  if (auto* sheet = OpenEntrySheet()) sheet->DropSuggestion();
}

void EntryEditing::CheckNumber_Button() {
  const auto account = edited_.account.lock();
  if (account == nullptr || sheets_.Current() != Sheet::Debit) return;
  debit_.CheckNumber_Button(SuggestedCheckNumber(*account, desk_.preferences()));
}

}  // namespace tallyfold
