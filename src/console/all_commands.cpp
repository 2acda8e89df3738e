#include "console/all_commands.h"

namespace tallyfold::console {

std::span<const Subject> AllSubjects() {
  static const Subject kSubjects[] = {
      {"General", GeneralCommands()},
      {"Accounts", AccountCommands()},
      {"Account sheet", AccountSheetCommands()},
      {"Types", TypeCommands()},
      {"Register", RegisterCommands()},
      {"Filters", FilterCommands()},
      {"Speech", SpeechCommands()},
      {"Finding", FindCommands()},
      {"Entries", EntryCommands()},
      {"Orders", OrderCommands()},
      {"Links", LinkCommands()},
      {"Undo", UndoCommands()},
      {"Reconciling", ReconcileCommands()},
      {"Schedules", ScheduleCommands()},
      {"Reminder", ReminderCommands()},
      {"Summaries", SummaryCommands()},
      {"Window", WindowCommands()},
      {"Printing", PrintCommands()},
      {"Files", StorageCommands()},
      {"Export", ExportCommands()},
      {"Import", ImportCommands()},
      {"Passwords", PasswordCommands()},
      {"Preferences", PreferenceCommands()},
  };
  return kSubjects;
}

}  // namespace tallyfold::console
