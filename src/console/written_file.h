#pragma once

#include <functional>
#include <string>

#include "app/exchange/export_commands.h"
#include "console/console.h"

namespace tallyfold::console {

// Runs an operation that asks for a file, answers its panel with the path that was typed, after
// `choose` has made the other choices, and tells that it is written. Throws CommandError, with the
// reason, where it is not.
void WriteToFile(Console& console, const std::string& typed_path, std::function<void()> choose,
                 const std::function<WriteResult(tallyfold::ExportCommands&)>& operation);

}  // namespace tallyfold::console
