#include "console/all_commands.h"

namespace tallyfold::console {

std::span<const Subject> AllSubjects() {
  static const Subject kSubjects[] = {
      {"General", GeneralCommands()},       {"Accounts", AccountCommands()},
      {"Accounts", AccountSheetCommands()}, {"Types", TypeCommands()},
      {"Register", RegisterCommands()},     {"Filters", FilterCommands()},
      {"Register", SpeechCommands()},       {"Register", FindCommands()},
      {"Entries", EntryCommands()},         {"Entries", OrderCommands()},
      {"Entries", LinkCommands()},          {"Entries", UndoCommands()},
      {"Reconciling", ReconcileCommands()}, {"Schedules", ScheduleCommands()},
      {"Schedules", ReminderCommands()},    {"Summaries", SummaryCommands()},
      {"Window", WindowCommands()},         {"Printing", PrintCommands()},
      {"Files", StorageCommands()},         {"Exchange", ExportCommands()},
      {"Exchange", ImportCommands()},       {"Exchange", MatchCommands()},
      {"Passwords", PasswordCommands()},    {"Preferences", PreferenceCommands()},
  };
  return kSubjects;
}

}  // namespace tallyfold::console
