#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "platform/system_log.h"
#include "platform/terminal.h"

namespace tallyfold::console {

// The log of a session: each line goes to standard error and is kept for the `log` command.
class ConsoleLog final : public SystemLog {
 public:
  // A damaged file can log a line for each key of each entry; beyond this many lines the oldest
  // are forgotten.
  static constexpr std::size_t kKeptLines = 10000;

  explicit ConsoleLog(Terminal& terminal) noexcept : terminal_(terminal) {}

  void Write(std::string_view line) override;
  [[nodiscard]] const std::deque<std::string>& Lines() const noexcept { return lines_; }

 private:
  Terminal& terminal_;
  std::deque<std::string> lines_;
};

}  // namespace tallyfold::console
