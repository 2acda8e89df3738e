#include "app/shell_answers.h"

#include "app/parts.h"

namespace tallyfold {

// No account is loaded yet: the registers show the columns of the one that is going to be shown.
void ShellAnswers::SetUpRegisters() {
  ShowByPreferences();
  parts_.registers.ShowColumnsOf(parts_.desk.preferences().GetSelectedAccountNumber());
}

void ShellAnswers::ShowByPreferences() {
  const LDGRPreferences& preferences = parts_.desk.preferences();
  parts_.balance_field.AccountBalance_PopUp_Populate(preferences.GetBalanceMode());
  parts_.amount_fields.SetSpeak(preferences.GetSpeakEntryAmounts());
  parts_.registers.UpdateDateFormat();
  parts_.schedules.UpdateDateFormat();
}

void ShellAnswers::PreferencesChanged() {
  parts_.window->updateTableFonts();
  parts_.window->UpdateTableRowHeights();
  ShowByPreferences();
  if (parts_.desk.preferences().GetShowAccountsDrawer() != parts_.drawer.State().is_open) {
    parts_.drawer.ToggleAccountsDrawer();
  }
  parts_.announcer.Changed(Area::Preferences);
  parts_.refresh.AccountsChanged();
}

void ShellAnswers::ImportEnded() {
  parts_.import_command.Ended();
}

// --- The idle watch -----------------------------------------------------------------------------

std::optional<std::chrono::milliseconds> ShellAnswers::TimeSinceLastEvent() const {
  return parts_.application.TimeSinceLastEvent();
}

bool ShellAnswers::SheetIsOpen() const {
  return !parts_.sheets.IsFree();
}

bool ShellAnswers::ModalWindowIsUp() const {
  return parts_.modal.IsUp() || parts_.window->UserIsTracking();
}

bool ShellAnswers::AccountsWantSaving() const {
  return parts_.desk.IsUnlocked() && parts_.selection.HasPostLoaded() &&
         parts_.accounts.HasUnsavedChanges();
}

bool ShellAnswers::Accounts_Save() {
  return parts_.saving.Accounts_Save();
}

bool ShellAnswers::SchedulesCanBeEvaluated() const {
  return parts_.desk.IsUnlocked() && parts_.desk.SelectedAccount() != nullptr;
}

void ShellAnswers::OfferDueOccurrences(bool by_timer) {
  parts_.reminder.OfferDueOccurrences(by_timer);
}

void ShellAnswers::DayChanged() {
  parts_.filters.Filters_DateFilters_Update();
  parts_.refresh.DayChanged();
  parts_.reminder.DayChanged();
}

void ShellAnswers::StopSpeech() {
  parts_.speaker.StopSpeech();
}

}  // namespace tallyfold
