#include "console/written_file.h"

#include <utility>

#include "app/controller.h"
#include "console/command_error.h"
#include "console/console_panels.h"
#include "console/printer.h"
#include "platform/file_system.h"

namespace tallyfold::console {

void WriteToFile(Console& console, const std::string& typed_path, std::function<void()> choose,
                 const std::function<WriteResult(tallyfold::ExportCommands&)>& operation) {
  const std::string path = AbsolutePath(console.files, typed_path);
  if (console.files.IsFolder(path)) throw CommandError(path + " is a folder");
  console.panels.Expect(path, std::move(choose));
  const WriteResult result = operation(console.controller.exports());
  if (const std::string problem = console.panels.TakeProblem(); !problem.empty()) {
    throw CommandError(problem);
  }
  if (result != WriteResult::Written) throw CommandError(path + " could not be written");
  console.printer.Confirm("Written to " + path + ".");
}

}  // namespace tallyfold::console
