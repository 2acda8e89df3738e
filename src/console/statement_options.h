#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/exchange/statement_import_state.h"
#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// What was typed for a bank's file.
struct StatementChoicesTyped {
  std::optional<std::string> account;
  std::optional<bool> suggests_types;
  std::optional<bool> zero_amounts_as_deposits;
  // None leaves a setting to the reader again.
  std::vector<std::pair<StatementSetting, std::optional<std::int32_t>>> settings;
  // Columns from 0 on, in the order typed.
  std::vector<std::pair<std::size_t, CsvField>> columns;
  bool forgets_columns = false;
};

// Throws CommandError for options and values that do not go with a file of that kind.
[[nodiscard]] StatementChoicesTyped ReadStatementChoices(const StatementOptionsState& shown,
                                                         const Arguments& arguments);
// Throws CommandError where an option is given that only files of banks have.
void RefuseStatementOptions(const Arguments& arguments);

// Types the choices into the sheet, which is open, and confirms it. Throws CommandError where
// nothing can come of the file so, or a question is not answered: what there is to choose.
void ConfirmStatementOptions(Console& console, const StatementChoicesTyped& choices);

// "order=dmy", as the options of the commands are typed.
[[nodiscard]] std::string SettingAsTyped(const StatementOptionsState& state,
                                         StatementSetting setting, std::int64_t value);

}  // namespace tallyfold::console
