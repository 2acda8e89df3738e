#pragma once

#include <span>

#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// What a summary counts and shows. Each selects the summary that the first word names, if there is
// one.

// The options that say it.
[[nodiscard]] std::span<const Option> SummaryOptions();
void ShowSummaryOptions(Console& console, const Arguments& arguments);
// Changes it by the options given, through the sheet of the summary. Throws CommandError, and
// nothing is selected or changed, for a value that will not do.
void SetSummaryOptions(Console& console, const Arguments& arguments);

}  // namespace tallyfold::console
