#include "console/console_log.h"

#include "console/table.h"

namespace tallyfold::console {

void ConsoleLog::Write(std::string_view line) {
  terminal_.WriteError(Printable(line) + '\n');
  lines_.emplace_back(line);
  if (lines_.size() > kKeptLines) lines_.pop_front();
}

}  // namespace tallyfold::console
