// The review of an import, from what was read to what is committed.

#include "app/exchange/qif_import_controller.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "exchange/qif_hints.h"
#include "ledger/change.h"
#include "model/date_number.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {

const QifAccount* LDGRQIFImportController::ChosenAccount(const QifResult& result) const {
  const std::int32_t index = options_.typed.account;
  const bool is_account = index >= 0 && static_cast<std::size_t>(index) < result.accounts.size();
  return is_account ? &result.accounts[static_cast<std::size_t>(index)] : nullptr;
}

void LDGRQIFImportController::Import_Init(const QifResult& result) {
  const Announcer::Operation operation(announcer_);
  const QifAccount* account = ChosenAccount(result);
  const QifEntryList& chosen = account == nullptr ? result.entries : *account->entries;
  Change change(ledger_);
  // The review takes a number of the account.
  change.EditSettings(account_);
  review_ = QifReview(result, chosen, *account_);
  change.Close();
  BeginReview();
  ImportHints& hints = review_state_.hints;
  hints = HintsFor(import_, chosen, TodaysDateNumber());
  hints.elsewhere = result.entries.size() - std::min(result.entries.size(), chosen.size());
  if (account != nullptr && account->source != account->name) hints.source = account->source;
  ShowReviewed();
}

void LDGRQIFImportController::BeginReview() {
  first_number_ = review_.entries().empty() ? 0 : review_.entries().front()->GetNumber();
  edit_entry_ = nullptr;
  review_state_ = {};
  review_state_.file_name = std::filesystem::path(path_).filename().string();
  review_state_.account_name = account_->GetName();
}

void LDGRQIFImportController::ShowReviewed() {
  rows_.SetAccountPreferences(
      desk_.preferences().GetPreferencesForAccountNumber(account_->GetNumber()));
  rows_.SetDateFormat(RegisterDateFormat(desk_.preferences()));
  rows_.SetEntries(review_.entries());
  EntriesChanged();
}

void LDGRQIFImportController::Import_Run() {
  stage_ = Stage::Review;
  up_.emplace(modal_);
  review_state_.is_open = true;
  announcer_.Changed(Area::ImportReview);
}

void LDGRQIFImportController::CloseReview() {
  review_state_.is_open = false;
  rows_.StoreColumns();
  rows_.SetEntries({});
  edit_entry_ = nullptr;
  announcer_.Changed(Area::ImportReview);
}

std::shared_ptr<LDGRQIFImportEntry> LDGRQIFImportController::EntryAtPlace(
    std::int32_t place) const {
  // Removing leaves the others in the order of their places.
  const auto& all = review_.entries();
  const auto found = std::partition_point(all.begin(), all.end(),
                                          [&](const auto& each) { return PlaceOf(*each) < place; });
  return found != all.end() && PlaceOf(**found) == place ? *found : nullptr;
}

void LDGRQIFImportController::Import_DoNotImportPotentialDuplicates() {
  if (!IsReviewing()) return;
  review_.Import_DoNotImportPotentialDuplicates(*account_);
  EntriesChanged();
}

// --- Commands -----------------------------------------------------------------------------------

void LDGRQIFImportController::SelectEntry(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  const Announcer::Operation operation(announcer_);
  rows_.SelectRow(rows_.EntryToRow(entry.get()).value_or(TableState::kNoRow));
  UpdateButtons();
  announcer_.Changed(Area::ImportReview);
}

void LDGRQIFImportController::ClickedTableColumn(std::string_view identifier) {
  const Announcer::Operation operation(announcer_);
  rows_.ClickedTableColumn(identifier);
  announcer_.Changed(Area::ImportReview);
}

void LDGRQIFImportController::ImportEntry_Import() {
  const Announcer::Operation operation(announcer_);
  Import_CheckBox(rows_.GetSelectedEntry());
}

void LDGRQIFImportController::ImportEntry_Resolve() {
  const Announcer::Operation operation(announcer_);
  Cleared_CheckBox(rows_.GetSelectedEntry());
}

void LDGRQIFImportController::Import_CheckBox(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  if (entry != nullptr) MarkEntries({entry}, !entry->GetImport());
}

void LDGRQIFImportController::MarkEntries(const QifImportEntryList& entries, bool marked) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing()) return;
  for (const auto& entry : entries) review_.SetMarked(entry, marked);
  EntriesChanged();
}

void LDGRQIFImportController::Cleared_CheckBox(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  if (entry != nullptr) TurnClearedOver({entry});
}

void LDGRQIFImportController::TurnClearedOver(const QifImportEntryList& entries) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing()) return;
  for (const auto& entry : entries) entry->SetCleared(!entry->GetCleared());
  EntriesChanged();
}

void LDGRQIFImportController::ImportEntry_Match() {
  const Announcer::Operation operation(announcer_);
  if (const auto entry = rows_.GetSelectedEntry()) Match(entry, entry->GetMatched() == nullptr);
}

bool LDGRQIFImportController::Match(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                                    bool matched) {
  return entry != nullptr && MatchEntries({entry}, matched).empty();
}

QifImportEntryList LDGRQIFImportController::MatchEntries(const QifImportEntryList& entries,
                                                         bool matched) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing()) return entries;
  QifImportEntryList without;
  for (const auto& entry : entries) {
    if (!matched) {
      review_.Unmatch(entry);
    } else if (!review_.Match(entry)) {
      without.push_back(entry);
    }
  }
  if (without.size() < entries.size()) EntriesChanged();
  return without;
}

bool LDGRQIFImportController::MatchWith(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                                        const std::shared_ptr<LDGRAccountEntry>& chosen) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || entry == nullptr || !review_.MatchWith(entry, chosen)) return false;
  EntriesChanged();
  return true;
}

ReviewStanding LDGRQIFImportController::StandingOf(const LDGRQIFImportEntry& entry) const {
  if (entry.GetMatched() != nullptr) return ReviewStanding::Matched;
  if (const auto match = MatchOf(entry)) {
    const bool is_near = match->reason == QifMatch::Reason::NearDate;
    return is_near ? ReviewStanding::MayRepeat : ReviewStanding::Repeats;
  }
  return entry.GetUnmarkedReason() == UnmarkedReason::None ? ReviewStanding::New
                                                           : ReviewStanding::LeftOut;
}

void LDGRQIFImportController::Import_TakeBalance(bool takes) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || !review_state_.balance) return;
  review_state_.takes_balance = takes;
  announcer_.Changed(Area::ImportReview);
}

void LDGRQIFImportController::ImportEntry_ImportAll() {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing()) return;
  review_.ToggleAll();
  EntriesChanged();
}

void LDGRQIFImportController::ImportEntry_UnmarkUndated() {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || review_state_.marked_undated == 0) return;
  review_.UnmarkUndated();
  EntriesChanged();
}

void LDGRQIFImportController::ImportEntry_Remove() {
  if (const auto entry = rows_.GetSelectedEntry()) RemoveEntries({entry});
}

void LDGRQIFImportController::RemoveEntries(QifImportEntryList entries) {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || !sheets_.IsFree()) return;
  review_.Remove(entries);
  rows_.RemoveEntries(entries);
  EntriesChanged();
}

bool LDGRQIFImportController::ImportEntry_Change() {
  const auto entry = rows_.GetSelectedEntry();
  if (!IsReviewing() || entry == nullptr || !sheets_.IsFree()) return false;
  edit_entry_ = entry;
  return editing_.EditOwned({entry, false, account_, this, review_.types()});
}

std::string LDGRQIFImportController::CheckEdited(const LDGRAccountEntry& entry) const {
  const bool is_here = IsReviewing() && edit_entry_.get() == &entry;
  return is_here ? "" : LocalizedText("The entry has been removed.");
}

void LDGRQIFImportController::TakeEdited(LDGRAccountEntry& entry) {
  const std::int32_t number = entry.GetType();
  const auto& made = review_.types();
  const auto found =
      std::ranges::find(made, number, [](const auto& each) { return each->GetNumber(); });
  edit_entry_->SetActualType(found != made.end() ? *found
                                                 : account_->AccountEntryTypeForNumber(number));
  // What it was matched with need not be the same payment any longer.
  review_.Unmatch(edit_entry_);
  review_.ForgetMatches();
  rows_.SortAgain();
  EntriesChanged();
}

void LDGRQIFImportController::SpeakEntry() {
  if (const auto entry = rows_.GetSelectedEntry()) speaker_.SpeakText(entry->asSpeakableString());
}

// --- What is shown ------------------------------------------------------------------------------

void LDGRQIFImportController::EntriesChanged() {
  UpdateButtons();
  rows_.Redraw();
  ImportTotal_Field_Update();
}

void LDGRQIFImportController::UpdateButtons() {
  const auto selected = rows_.GetSelectedEntry();
  const bool is_selected = selected != nullptr;
  review_state_.can_import = review_state_.can_change = review_state_.can_remove =
      review_state_.can_resolve = is_selected;
  review_state_.can_match = is_selected && review_.MatchFor(*selected) != nullptr;
  review_state_.is_matched = is_selected && selected->GetMatched() != nullptr;
  review_state_.can_import_all = !review_.entries().empty();
}

void LDGRQIFImportController::ImportTotal_Field_Update() {
  review_state_.total = review_.Total();
  review_state_.total_text = RegisterAmountText(review_state_.total, desk_.preferences());
  review_state_.entry_count = review_.entries().size();
  review_state_.marked_count = review_.MarkedCount();
  review_state_.matched_count = review_.MatchedCount();
  review_state_.marked_undated = review_.MarkedUndated();
  review_state_.new_type_count = review_.types().size();
  announcer_.Changed(Area::ImportReview);
}

// --- The end ------------------------------------------------------------------------------------

bool LDGRQIFImportController::UserAgrees() const {
  std::string text =
      Message("Entries to import: {1}", {std::to_string(review_state_.marked_count)});
  if (review_state_.marked_undated > 0) {
    text += '\n' + Message("Without a date that can be read: {1}",
                           {std::to_string(review_state_.marked_undated)});
  }
  if (review_state_.matched_count > 0) {
    text += '\n' + LocalizedText("Entries to match:") + ' ' +
            std::to_string(review_state_.matched_count);
  }
  return modal_.Run({LocalizedText("Import"),
                     std::move(text),
                     {LocalizedText("OK"), LocalizedText("Cancel")}}) == 0;
}

bool LDGRQIFImportController::import_OK_Button() {
  return IsReviewing() && UserAgrees() && Import_OK();
}

bool LDGRQIFImportController::Import_OK() {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || !sheets_.IsFree()) return false;
  if (account_ != desk_.SelectedAccount()) {
    review_state_.account_is_gone = true;
    announcer_.Changed(Area::ImportReview);
    return false;
  }
  Change change(ledger_, "Import", account_);
  review_.Commit(change, account_, account_->GetQIFImportAllTypes());
  if (review_state_.takes_balance) {
    change.EditOptions(account_).setStatementBalance(RoundedAmount(review_state_.balance->amount) +
                                                     0.0);
  }
  change.Close();
  CloseReview();
  StageEnded(kConfirmed);
  return true;
}

void LDGRQIFImportController::import_Cancel_Button() {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || !sheets_.IsFree()) return;
  CloseReview();
  StageEnded(kCancelled);
}

bool LDGRQIFImportController::import_GoBack_Button() {
  const Announcer::Operation operation(announcer_);
  if (!IsReviewing() || !sheets_.IsFree()) return false;
  CloseReview();
  StageEnded(kGoBack);
  return true;
}

}  // namespace tallyfold
