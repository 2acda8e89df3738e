#include "app/entries/entry_removal.h"

#include <algorithm>
#include <utility>

#include "ledger/change.h"
#include "model/account_entry.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::string_view kRemoveEntry = "Remove Entry";

}  // namespace

EntryRemoval::Asked EntryRemoval::Selected() const {
  return {desk_.SelectedAccount(), desk_.SelectedEntry()};
}

bool EntryRemoval::IsThere(const Asked& asked) const {
  if (asked.account == nullptr || asked.entry == nullptr || asked.account->IsLocked()) return false;
  const auto& accounts = desk_.accounts();
  const auto& entries = asked.account->GetEntries();
  return std::find(accounts.begin(), accounts.end(), asked.account) != accounts.end() &&
         std::find(entries.begin(), entries.end(), asked.entry) != entries.end();
}

void EntryRemoval::EntryRemoveConfirm_Begin() {
  const Announcer::Operation operation(announcer_);
  const Asked asked = Selected();
  if (!sheets_.IsFree() || !IsThere(asked)) return;
  confirm_.note = links_.NoteOnOtherHalf(*asked.account, *asked.entry);
  announcer_.Changed(Area::EntryRemoveSheet);
  if (!desk_.preferences().GetEntryRemoveConfirm()) return AskForOtherHalfOrDelete(asked);
  asked_ = asked;
  confirm_.is_open = true;
  confirm_.question = LocalizedText("Are you sure you would like to remove the selected entry?");
  announcer_.Changed(Area::EntryRemoveSheet);
  sheets_.Open(Sheet::EntryRemoveConfirm, [this] { EntryRemoveConfirm_Cancel(); });
}

bool EntryRemoval::EntryRemoveConfirm_OK() {
  const Announcer::Operation operation(announcer_);
  if (!confirm_.is_open) return false;
  confirm_.problem = ProblemOfAsked();
  if (confirm_.problem) {
    announcer_.Changed(Area::EntryRemoveSheet);
    return false;
  }
  const Asked asked = std::exchange(asked_, {});
  CloseConfirm();
  AskForOtherHalfOrDelete(asked);
  return true;
}

std::optional<Problem> EntryRemoval::ProblemOfAsked() const {
  if (IsThere(asked_)) return std::nullopt;
  return Problem{"", LocalizedText("The entry has been removed.")};
}

void EntryRemoval::EntryRemoveConfirm_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (!confirm_.is_open) return;
  asked_ = {};
  confirm_.note.clear();
  CloseConfirm();
}

void EntryRemoval::CloseConfirm() {
  confirm_.is_open = false;
  confirm_.question.clear();
  confirm_.problem.reset();
  announcer_.Changed(Area::EntryRemoveSheet);
  sheets_.Close(Sheet::EntryRemoveConfirm);
}

void EntryRemoval::AskForOtherHalfOrDelete(const Asked& asked) {
  if (asked.entry->IsTransfer() && links_.OtherHalf(*asked.account, *asked.entry) != nullptr) {
    AskForOtherHalf(asked);
  } else {
    Delete(asked);
  }
}

void EntryRemoval::TransferEntryRemoveConfirm_Begin() {
  const Announcer::Operation operation(announcer_);
  const Asked asked = Selected();
  if (links_.Transfer_LinkedEntry(asked.entry.get()) == nullptr || !sheets_.IsFree()) return;
  AskForOtherHalf(asked);
}

void EntryRemoval::AskForOtherHalf(const Asked& asked) {
  asked_ = asked;
  transfer_.is_open = true;
  transfer_.question =
      MessageWithText(LocalizedText("The other half of this transfer is in the account \"%@\".  "
                                    "Would you like to keep it there as an ordinary entry?"),
                      asked.entry->GetToFrom());
  announcer_.Changed(Area::TransferEntryRemoveSheet);
  sheets_.Open(Sheet::TransferEntryRemoveConfirm, [this] { TransferEntryRemoveConfirm_Cancel(); });
}

bool EntryRemoval::TransferEntryRemoveConfirm_Yes() {
  return AnswerTransfer(&TransferLinks::UnlinkOtherHalf);
}

bool EntryRemoval::TransferEntryRemoveConfirm_No() {
  return AnswerTransfer(&TransferLinks::RemoveOtherHalf);
}

bool EntryRemoval::AnswerTransfer(void (TransferLinks::*half)(Change&, const LDGRAccount&,
                                                              const LDGRAccountEntry&) const) {
  const Announcer::Operation operation(announcer_);
  if (!transfer_.is_open) return false;
  transfer_.problem = ProblemOfAsked();
  if (transfer_.problem) {
    announcer_.Changed(Area::TransferEntryRemoveSheet);
    return false;
  }
  const Asked asked = asked_;
  CloseTransfer();
  Change change(ledger_, kRemoveEntry, asked.account);
  (links_.*half)(change, *asked.account, *asked.entry);
  change.Remove(asked.account, asked.entry.get());
  change.Close();
  refresh_.EntryRemoved();
  return true;
}

void EntryRemoval::TransferEntryRemoveConfirm_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (transfer_.is_open) CloseTransfer();
}

void EntryRemoval::CloseTransfer() {
  asked_ = {};
  transfer_ = {};
  announcer_.Changed(Area::TransferEntryRemoveSheet);
  sheets_.Close(Sheet::TransferEntryRemoveConfirm);
}

void EntryRemoval::Entry_Delete() {
  Delete(Selected());
}

void EntryRemoval::Delete(const Asked& asked) {
  if (asked.account == nullptr || asked.entry == nullptr) return;
  Change change(ledger_, kRemoveEntry, asked.account);
  change.Remove(asked.account, asked.entry.get());
  change.Close();
  refresh_.EntryRemoved();
}

}  // namespace tallyfold
