#include "app/face/refresh.h"

namespace tallyfold {

void Refresh::EntrySaved(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) {
  EntriesSaved({entry}, is_new);
}

void Refresh::EntriesAdded(const EntryList& entries) {
  EntriesSaved(entries, true);
}

void Refresh::EntriesSaved(const EntryList& entries, bool are_new) {
  const Announcer::Operation operation(announcer_);
  EntryButtons_Update();
  if (host_.LiveUpdatingFilters()) {
    host_.Search_Cancel();
    host_.ReloadRegisters();
  } else {
    host_.TakeSavedEntries(entries);
  }
  Balances();
  AccountsList_Redraw();
  host_.SelectEntry(entries.back());
  host_.TellIfHidden(entries.back(), are_new);
  entryMenu_Types_Menu_Populate();
}

void Refresh::EntryRemoved() {
  const Announcer::Operation operation(announcer_);
  host_.ReloadRegisters();
  Balances();
  AccountsList_Redraw();
  EntryButtons_Update();
  entryMenu_Types_Menu_Populate();
}

void Refresh::ImportEnded() {
  const Announcer::Operation operation(announcer_);
  host_.Search_Cancel();
  host_.ReloadRegisters();
  Balances();
  EntryButtons_Update();
  entryMenu_Types_Menu_Populate();
}

void Refresh::EntryMarked() {
  const Announcer::Operation operation(announcer_);
  host_.RedrawRegisters();
  Balances();
  AccountsList_Redraw();
}

void Refresh::SchedulesChanged() {
  const Announcer::Operation operation(announcer_);
  host_.ReloadSchedules();
  announcer_.Changed(Area::Schedules);
  announcer_.Changed(Area::ScheduleButtons);
}

void Refresh::AccountsChanged() {
  const Announcer::Operation operation(announcer_);
  AccountsList_Redraw();
  announcer_.Changed(Area::SelectedAccount);
  Account_Menu_Show_Menu_Populate();
  host_.RedrawRegisters();
  SchedulesChanged();
  Balances();
  entryMenu_Types_Menu_Populate();
}

void Refresh::DayChanged() {
  const Announcer::Operation operation(announcer_);
  host_.ReloadRegisters();
  Balances();
  AccountsList_Redraw();
  EntryButtons_Update();
  SchedulesChanged();
}

void Refresh::StepTaken() {
  const Announcer::Operation operation(announcer_);
  if (host_.LiveUpdatingFilters()) host_.Search_Cancel();
  host_.ReloadRegisters();
  AccountsChanged();
  EntryButtons_Update();
}

void Refresh::ShowEntry(const std::shared_ptr<LDGRAccountEntry>& entry) {
  host_.SelectEntry(entry);
  host_.TellIfHidden(entry, false);
}

void Refresh::Locked() {
  const Announcer::Operation operation(announcer_);
  AccountsList_Redraw();
  host_.RedrawRegisters();
  SchedulesChanged();
  announcer_.Changed(Area::History);
}

void Refresh::Balances() {
  announcer_.Changed(Area::Summary);
  AccountBalance_Field_Update();
  ReconcileTab_UpdateBalances();
}

}  // namespace tallyfold
