#pragma once

#include <span>

#include "app/commands/command.h"

// The commands of each subject. Commands() has them all.
namespace tallyfold::command_tables {

[[nodiscard]] std::span<const Command> File();
[[nodiscard]] std::span<const Command> Account();
[[nodiscard]] std::span<const Command> Entry();
[[nodiscard]] std::span<const Command> EntrySheets();
[[nodiscard]] std::span<const Command> Schedule();
[[nodiscard]] std::span<const Command> Summary();
[[nodiscard]] std::span<const Command> View();

// What most commands need: nothing is locked, and no sheet, alert, panel or import is in the way;
// then also a selected account, entry or scheduled entry.
[[nodiscard]] bool IsFree(LDGRController& app);
[[nodiscard]] bool HasAccount(LDGRController& app);
[[nodiscard]] bool HasEntry(LDGRController& app);
[[nodiscard]] bool HasSchedule(LDGRController& app);

}  // namespace tallyfold::command_tables
