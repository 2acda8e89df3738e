#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/system_log.h"
#include "platform/terminal.h"

namespace tallyfold::console {

// The log of a session: lines go to standard error and are kept for the `log` command. A damaged
// file can log the same line for each of its entries; repeats are counted.
class ConsoleLog final : public SystemLog {
 public:
  struct Line {
    std::string text;
    std::size_t times = 0;
  };

  // Beyond this many different lines the oldest are forgotten.
  static constexpr std::size_t kKeptLines = 10000;

  explicit ConsoleLog(Terminal& terminal) noexcept : terminal_(terminal) {}
  ConsoleLog(const ConsoleLog&) = delete;
  ConsoleLog& operator=(const ConsoleLog&) = delete;
  ~ConsoleLog() override { TellRepeats(); }

  void Write(std::string_view line) override;
  // Says how often each line came again since this was called last; from here on lines are told
  // anew.
  void TellRepeats();
  // In the order in which they came first.
  [[nodiscard]] const std::deque<Line>& Lines() const noexcept { return lines_; }

 private:
  Terminal& terminal_;
  std::deque<Line> lines_;
  // The kept lines by their texts.
  std::unordered_map<std::string_view, Line*> by_text_;
  // What has been told since the repeats were told last, and how often it came again since then.
  std::unordered_map<std::string, std::size_t> repeats_;
  std::vector<std::string> repeated_;  // of these, those that came again, in that order
};

}  // namespace tallyfold::console
