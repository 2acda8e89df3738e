#pragma once

#include <span>

#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// The options that describe scheduled entries.
[[nodiscard]] std::span<const Option> ScheduleOptions();

// Types the options given into the open schedule sheet, as a user would, and leaves the others as
// the sheet proposes them. Throws CommandError for what an entry of that kind does not have.
void TypeIntoScheduleSheet(Console& console, const Arguments& arguments);

}  // namespace tallyfold::console
