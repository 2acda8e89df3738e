#include "app/register_answers.h"

#include "app/parts.h"
#include "filters/filter_types.h"
#include "ledger/change.h"

namespace tallyfold {

// --- Rows ---------------------------------------------------------------------------------------

bool RegisterAnswers::LiveUpdatingFilters() const {
  return parts_.desk.preferences().GetLiveUpdatingFilters();
}

void RegisterAnswers::ReloadRegisters() {
  parts_.reveal.Forget();
  parts_.registers.Reload();
}

void RegisterAnswers::ReloadShownRegister() {
  parts_.reveal.Forget();
  parts_.registers.Reload(ShownRegister());
}

void RegisterAnswers::TakeSavedEntries(const EntryList& entries) {
  parts_.registers.TakeSavedEntries(entries);
}

void RegisterAnswers::RedrawRegisters() {
  parts_.registers.Redraw();
}

void RegisterAnswers::ReloadSchedules() {
  parts_.schedules.Rows().Reload();
}

void RegisterAnswers::ReloadAccountsList() {
  parts_.drawer.Reload();
}

void RegisterAnswers::SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) {
  parts_.desk.SelectEntry(entry);
}

RegisterKind RegisterAnswers::ShownRegister() const {
  return parts_.tabs.ShownRegister();
}

LDGRAccountTableViewData* RegisterAnswers::CurrentRegister() {
  return &parts_.registers.currentTableDataSource();
}

// --- Entries out of sight -----------------------------------------------------------------------

void RegisterAnswers::TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) {
  using Reason = EntryReveal::Reason;
  parts_.reveal.TellIfHidden(entry, is_new ? Reason::Added : Reason::Changed);
}

bool RegisterAnswers::IsShown(const LDGRAccountEntry* entry) const {
  return parts_.registers.currentTableDataSource().EntryToRow(entry).has_value();
}

std::shared_ptr<LDGRFilter> RegisterAnswers::CurrentFilter() const {
  const auto account = parts_.desk.SelectedAccount();
  if (account == nullptr) return nullptr;
  return parts_.registers.CurrentKind() == RegisterKind::Reconcile ? account->reconcileFilter()
                                                                   : account->entryFilter();
}

void RegisterAnswers::ShowRegister() {
  const bool is_reconcile = parts_.registers.CurrentKind() == RegisterKind::Reconcile;
  parts_.tabs.Select(is_reconcile ? Tab::Reconcile : Tab::Entry);
}

void RegisterAnswers::ShowAllEntries() {
  ShowRegister();
  parts_.search.Filter_Select(filter_type::kGeneral);
}

void RegisterAnswers::Account_Select(const std::shared_ptr<LDGRAccount>& account) {
  parts_.selection.Account_Select(account);
}

// --- The search ---------------------------------------------------------------------------------

void RegisterAnswers::AsOne(const std::function<void()>& steps) {
  const Announcer::Operation operation(parts_.announcer);
  // A filter is no step to be undone, but part of what the file holds.
  Change change(parts_.ledger);
  if (const auto account = parts_.desk.SelectedAccount()) change.EditSettings(account);
  steps();
  change.Close();
}

void RegisterAnswers::AsKeystroke(const std::function<void()>& steps) {
  const Announcer::Operation operation(parts_.announcer);
  Change change(parts_.ledger);
  if (const auto account = parts_.desk.SelectedAccount()) change.EditSettings(account);
  change.WriteLater();
  steps();
  change.Close();
}

void RegisterAnswers::Search_Cancel() {
  parts_.search.Search_Cancel();
}

void RegisterAnswers::SearchStateChanged() {
  parts_.announcer.Changed(Area::Search);
}

void RegisterAnswers::FocusSearchField() {
  parts_.window->FocusSearchField();
}

void RegisterAnswers::UpdateEntryDependentButtons() {
  parts_.refresh.EntryButtons_Update();
}

void RegisterAnswers::UpdateBalanceField() {
  parts_.refresh.AccountBalance_Field_Update();
}

// --- Speech -------------------------------------------------------------------------------------

void RegisterAnswers::StopSpeech() {
  parts_.speaker.StopSpeech();
}

bool RegisterAnswers::RegisterWindowIsMain() const {
  return parts_.window->IsMain();
}

float RegisterAnswers::PauseBetweenSpokenEntries() const {
  return parts_.desk.preferences().GetPauseBetweenSpokenEntries();
}

}  // namespace tallyfold
