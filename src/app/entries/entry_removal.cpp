#include "app/entries/entry_removal.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

std::string QuestionFor(const EntryList& entries, const LDGRPreferences& preferences) {
  if (entries.size() == 1) {
    return LocalizedText("Are you sure you would like to remove the selected entry?");
  }
  double sum = 0.0;
  for (const auto& entry : entries) sum += entry->GetAmount();
  return Message("Are you sure you would like to remove the {1} selected entries, {2} in all?",
                 {std::to_string(entries.size()), RegisterAmountText(sum, preferences)});
}

std::string QuestionForOtherHalves(const EntryList& transfers) {
  if (transfers.size() == 1) {
    return Message(
        "The other half of this transfer is in the account "
        "\"{1}\".  Would you like to keep it there as an ordinary "
        "entry?",
        {transfers.front()->GetToFrom()});
  }
  return Message(
      "The other halves of {1} transfers are in other accounts.  Would you like to keep "
      "them there as ordinary entries?",
      {std::to_string(transfers.size())});
}

}  // namespace

EntryRemoval::Asked EntryRemoval::Selected() const {
  const auto entry = desk_.SelectedEntry();
  return {desk_.SelectedAccount(), entry != nullptr ? EntryList{entry} : EntryList()};
}

EntryRemoval::Asked EntryRemoval::Present(Asked asked) const {
  const auto& accounts = desk_.accounts();
  if (asked.account == nullptr || asked.account->IsLocked() ||
      std::find(accounts.begin(), accounts.end(), asked.account) == accounts.end()) {
    return {};
  }
  const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> wanted(asked.entries.begin(),
                                                                     asked.entries.end());
  asked.entries.clear();
  for (const auto& entry : asked.account->GetEntries()) {
    if (wanted.contains(entry)) asked.entries.push_back(entry);
  }
  return asked;
}

void EntryRemoval::EntryRemoveConfirm_Begin() {
  const Announcer::Operation operation(announcer_);
  Begin(Selected());
}

void EntryRemoval::EntriesRemoveConfirm_Begin(const EntryList& entries) {
  const Announcer::Operation operation(announcer_);
  Begin({desk_.SelectedAccount(), entries});
}

void EntryRemoval::Begin(Asked asked) {
  asked = Present(std::move(asked));
  if (!sheets_.IsFree() || asked.entries.empty()) return;
  confirm_.note = NoteOnOtherHalves(asked);
  announcer_.Changed(Area::EntryRemoveSheet);
  if (!desk_.preferences().GetEntryRemoveConfirm()) return AskForOtherHalvesOrDelete(asked);
  confirm_.is_open = true;
  confirm_.question = QuestionFor(asked.entries, desk_.preferences());
  asked_ = std::move(asked);
  announcer_.Changed(Area::EntryRemoveSheet);
  sheets_.Open(Sheet::EntryRemoveConfirm, [this] { EntryRemoveConfirm_Cancel(); });
}

bool EntryRemoval::EntryRemoveConfirm_OK() {
  const Announcer::Operation operation(announcer_);
  if (!confirm_.is_open) return false;
  const auto asked = StillAsked(confirm_.problem);
  if (!asked) {
    announcer_.Changed(Area::EntryRemoveSheet);
    return false;
  }
  asked_ = {};
  CloseConfirm();
  AskForOtherHalvesOrDelete(*asked);
  return true;
}

std::optional<EntryRemoval::Asked> EntryRemoval::StillAsked(std::optional<Problem>& problem) const {
  Asked asked = Present(asked_);
  if (!asked.entries.empty()) return asked;
  problem = Problem{"", LocalizedText(asked_.entries.size() > 1 ? "The entries have been removed."
                                                                : "The entry has been removed.")};
  return std::nullopt;
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

std::string EntryRemoval::NoteOnOtherHalves(const Asked& asked) const {
  const auto halves = links_.FindOtherHalves(*asked.account, asked.entries);
  const auto found =
      std::ranges::find_if(halves, [](const auto& search) { return search.is_ambiguous; });
  if (found == halves.end()) return "";
  return links_.NoteOnOtherHalf(*asked.account,
                                *asked.entries[static_cast<std::size_t>(found - halves.begin())]);
}

EntryList EntryRemoval::TransfersWithOtherHalf(const Asked& asked) const {
  const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> removed(asked.entries.begin(),
                                                                      asked.entries.end());
  const auto halves = links_.FindOtherHalves(*asked.account, asked.entries);
  EntryList transfers;
  for (std::size_t i = 0; i < halves.size(); ++i) {
    const auto& half = halves[i].half;
    if (half != nullptr && !removed.contains(half)) transfers.push_back(asked.entries[i]);
  }
  return transfers;
}

void EntryRemoval::AskForOtherHalvesOrDelete(const Asked& asked) {
  if (const EntryList transfers = TransfersWithOtherHalf(asked); !transfers.empty()) {
    AskForOtherHalves(asked, transfers);
  } else {
    Delete(asked, OtherHalves::Ignored);
  }
}

void EntryRemoval::TransferEntryRemoveConfirm_Begin() {
  const Announcer::Operation operation(announcer_);
  const Asked asked = Present(Selected());
  if (asked.entries.empty() || !sheets_.IsFree()) return;
  const EntryList transfers = TransfersWithOtherHalf(asked);
  if (!transfers.empty()) AskForOtherHalves(asked, transfers);
}

void EntryRemoval::AskForOtherHalves(const Asked& asked, const EntryList& transfers) {
  asked_ = asked;
  transfer_.is_open = true;
  transfer_.question = QuestionForOtherHalves(transfers);
  announcer_.Changed(Area::TransferEntryRemoveSheet);
  sheets_.Open(Sheet::TransferEntryRemoveConfirm, [this] { TransferEntryRemoveConfirm_Cancel(); });
}

bool EntryRemoval::TransferEntryRemoveConfirm_Yes() {
  return AnswerTransfer(OtherHalves::Unlinked);
}

bool EntryRemoval::TransferEntryRemoveConfirm_No() {
  return AnswerTransfer(OtherHalves::Removed);
}

bool EntryRemoval::AnswerTransfer(OtherHalves halves) {
  const Announcer::Operation operation(announcer_);
  if (!transfer_.is_open) return false;
  const auto asked = StillAsked(transfer_.problem);
  if (!asked) {
    announcer_.Changed(Area::TransferEntryRemoveSheet);
    return false;
  }
  CloseTransfer();
  Delete(*asked, halves);
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
  const Announcer::Operation operation(announcer_);
  Delete(Selected(), OtherHalves::Ignored);
}

void EntryRemoval::Delete(const Asked& asked, OtherHalves halves) {
  if (asked.account == nullptr || asked.entries.empty()) return;
  Change change(ledger_, Plural("Remove Entry", "Remove Entries", asked.entries.size()),
                asked.account);
  switch (halves) {
    case OtherHalves::Ignored:
      break;
    case OtherHalves::Unlinked:
      links_.UnlinkOtherHalves(change, *asked.account, asked.entries);
      break;
    case OtherHalves::Removed:
      links_.RemoveOtherHalves(change, *asked.account, asked.entries);
      break;
  }
  change.Remove(asked.account, asked.entries);
  change.Close();
  refresh_.EntryRemoved();
}

}  // namespace tallyfold
