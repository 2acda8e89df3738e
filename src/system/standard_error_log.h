#pragma once

#include <deque>
#include <string>

#include "platform/system_log.h"

namespace tallyfold {

// Writes each line to standard error at once, and keeps the latest ones to be shown.
class StandardErrorLog final : public SystemLog {
 public:
  // How many lines are kept: a file with nothing but bad records must not fill the memory.
  static constexpr std::size_t kKeptLines = 10'000;

  // Control characters, which may come from a damaged file, are written as "?".
  void Write(std::string_view line) override;
  // The oldest first.
  [[nodiscard]] const std::deque<std::string>& Lines() const { return lines_; }

 private:
  std::deque<std::string> lines_;
};

}  // namespace tallyfold
