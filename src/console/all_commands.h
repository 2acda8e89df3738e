#pragma once

#include <span>

#include "console/command.h"

namespace tallyfold::console {

// Every command, by subject in the order of help. A new subject adds its file, a declaration here
// and a line to the list in all_commands.cpp.
[[nodiscard]] std::span<const Subject> AllSubjects();

[[nodiscard]] std::span<const Command> AccountCommands();
[[nodiscard]] std::span<const Command> AccountSheetCommands();
[[nodiscard]] std::span<const Command> EntryCommands();
[[nodiscard]] std::span<const Command> ExportCommands();
[[nodiscard]] std::span<const Command> FilterCommands();
[[nodiscard]] std::span<const Command> FindCommands();
[[nodiscard]] std::span<const Command> GeneralCommands();
[[nodiscard]] std::span<const Command> ImportCommands();
[[nodiscard]] std::span<const Command> LinkCommands();
[[nodiscard]] std::span<const Command> MatchCommands();
[[nodiscard]] std::span<const Command> OrderCommands();
[[nodiscard]] std::span<const Command> PasswordCommands();
[[nodiscard]] std::span<const Command> PreferenceCommands();
[[nodiscard]] std::span<const Command> PrintCommands();
[[nodiscard]] std::span<const Command> ReconcileCommands();
[[nodiscard]] std::span<const Command> RegisterCommands();
[[nodiscard]] std::span<const Command> ReminderCommands();
[[nodiscard]] std::span<const Command> ScheduleCommands();
[[nodiscard]] std::span<const Command> SpeechCommands();
[[nodiscard]] std::span<const Command> StorageCommands();
[[nodiscard]] std::span<const Command> SummaryCommands();
[[nodiscard]] std::span<const Command> TypeCommands();
[[nodiscard]] std::span<const Command> UndoCommands();
[[nodiscard]] std::span<const Command> WindowCommands();

}  // namespace tallyfold::console
