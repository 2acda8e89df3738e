#include "console/all_commands.h"

namespace tallyfold::console {

std::span<const Subject> AllSubjects() {
  static const Subject kSubjects[] = {
      {"General", GeneralCommands()},    {"Accounts", AccountCommands()},
      {"Register", RegisterCommands()},  {"Filters", FilterCommands()},
      {"Speech", SpeechCommands()},      {"Entries", EntryCommands()},
      {"Schedules", ScheduleCommands()}, {"Types", TypeCommands()},
      {"Files", StorageCommands()},      {"Passwords", PasswordCommands()},
  };
  return kSubjects;
}

}  // namespace tallyfold::console
