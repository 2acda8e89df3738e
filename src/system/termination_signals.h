#pragma once

#include <optional>

namespace tallyfold {

// Turns the signals that ask a process to end (hang-up, interrupt, quit, termination) into
// something that an event loop can wait for: nothing of the program runs inside a signal handler.
// One object at a time; destroying it restores what the signals did before.
class TerminationSignals {
 public:
  // Throws std::system_error when the system has no pipe to give.
  TerminationSignals();
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  // Readable once a signal has come.
  [[nodiscard]] int descriptor() const noexcept { return read_end_; }
  // The number of the oldest signal not taken yet; none when there is none. Never waits.
  [[nodiscard]] std::optional<int> Take() noexcept;

 private:
  int read_end_ = -1;
};

}  // namespace tallyfold
