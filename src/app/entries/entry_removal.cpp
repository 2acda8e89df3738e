#include "app/entries/entry_removal.h"

#include "model/account_entry.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {

void EntryRemoval::EntryRemoveConfirm_Begin() {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || account->GetEntries().empty() || desk_.SelectedEntry() == nullptr ||
      !sheets_.IsFree()) {
    return;
  }
  if (!desk_.preferences().GetEntryRemoveConfirm()) return AskForOtherHalfOrDelete();
  confirm_ = {true, LocalizedText("Are you sure you would like to remove the selected entry?")};
  front_end_.Changed(Area::EntryRemoveSheet);
  sheets_.Open(Sheet::EntryRemoveConfirm, [this] { EntryRemoveConfirm_Cancel(); });
}

void EntryRemoval::EntryRemoveConfirm_OK() {
  if (!confirm_.is_open) return;
  CloseConfirm();
  AskForOtherHalfOrDelete();
}

void EntryRemoval::EntryRemoveConfirm_Cancel() {
  if (confirm_.is_open) CloseConfirm();
}

void EntryRemoval::CloseConfirm() {
  confirm_ = {};
  front_end_.Changed(Area::EntryRemoveSheet);
  sheets_.Close(Sheet::EntryRemoveConfirm);
}

void EntryRemoval::AskForOtherHalfOrDelete() {
  if (links_.Transfer_LinkedEntry(desk_.SelectedEntry().get()) != nullptr) {
    TransferEntryRemoveConfirm_Begin();
  } else {
    Entry_Delete();
  }
}

void EntryRemoval::TransferEntryRemoveConfirm_Begin() {
  const auto entry = desk_.SelectedEntry();
  if (links_.Transfer_LinkedEntry(entry.get()) == nullptr || !sheets_.IsFree()) return;
  transfer_ = {true, MessageWithText(LocalizedText("The other half of this transfer is in the "
                                                   "account \"%@\".  Would you like to keep it "
                                                   "there as an ordinary entry?"),
                                     entry->GetToFrom())};
  front_end_.Changed(Area::TransferEntryRemoveSheet);
  sheets_.Open(Sheet::TransferEntryRemoveConfirm, [this] { TransferEntryRemoveConfirm_Cancel(); });
}

void EntryRemoval::TransferEntryRemoveConfirm_Yes() {
  if (!CloseTransfer()) return;
  const auto account = desk_.SelectedAccount();
  const auto entry = desk_.SelectedEntry();
  if (account == nullptr || entry == nullptr) return;
  links_.UnlinkOtherHalf(*account, *entry);
  Delete(entry);
}

void EntryRemoval::TransferEntryRemoveConfirm_No() {
  if (!CloseTransfer()) return;
  const auto account = desk_.SelectedAccount();
  const auto entry = desk_.SelectedEntry();
  if (account == nullptr || entry == nullptr) return;
  links_.RemoveOtherHalf(*account, *entry);
  Delete(entry);
}

void EntryRemoval::TransferEntryRemoveConfirm_Cancel() {
  CloseTransfer();
}

bool EntryRemoval::CloseTransfer() {
  if (!transfer_.is_open) return false;
  transfer_ = {};
  front_end_.Changed(Area::TransferEntryRemoveSheet);
  sheets_.Close(Sheet::TransferEntryRemoveConfirm);
  return true;
}

void EntryRemoval::Entry_Delete() {
  Delete(desk_.SelectedEntry());
}

void EntryRemoval::Delete(const std::shared_ptr<LDGRAccountEntry>& entry) {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || entry == nullptr) return;
  account->RemoveEntry(entry.get());
  refresh_.EntryRemoved();
}

}  // namespace tallyfold
