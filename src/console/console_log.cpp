#include "console/console_log.h"

#include "console/table.h"

namespace tallyfold::console {

void ConsoleLog::Write(std::string_view line) {
  const auto [told, is_new] = repeats_.try_emplace(std::string(line), 0);
  if (is_new) {
    terminal_.WriteError(Printable(line) + '\n');
  } else if (++told->second == 1) {
    repeated_.emplace_back(line);
  }

  const auto known = by_text_.find(line);
  if (known != by_text_.end()) {
    ++known->second->times;
    return;
  }
  lines_.push_back({std::string(line), 1});
  by_text_.emplace(lines_.back().text, &lines_.back());
  if (lines_.size() <= kKeptLines) return;
  by_text_.erase(lines_.front().text);
  lines_.pop_front();
}

void ConsoleLog::TellRepeats() {
  for (const std::string& line : repeated_) {
    const std::size_t times = repeats_[line];
    terminal_.WriteError(Printable(line) + " (" + std::to_string(times) + " more " +
                         (times == 1 ? "time" : "times") + ")\n");
  }
  repeats_.clear();
  repeated_.clear();
}

}  // namespace tallyfold::console
