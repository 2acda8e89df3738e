#pragma once

#include <string>
#include <string_view>

#include "platform/terminal.h"
#include "system/poll_run_loop.h"
#include "system/termination_signals.h"

namespace tallyfold {

// Standard input, output and error. A termination signal that has arrived ends the input as long as
// it is not taken from `signals`; so does stopping the run loop while a person thinks. Writing
// where nobody reads any more no longer ends the process once there is one of these.
class PosixTerminal final : public Terminal {
 public:
  struct Descriptors {
    int input = 0;
    int output = 1;
    int error = 2;
  };

  PosixTerminal(PollRunLoop& loop, TerminationSignals& signals);
  // With descriptors that stay the caller's.
  PosixTerminal(PollRunLoop& loop, TerminationSignals& signals, Descriptors descriptors);

  [[nodiscard]] bool ReadsFromPerson() const override { return reads_from_person_; }
  [[nodiscard]] bool WritesToPerson() const override { return writes_to_person_; }
  [[nodiscard]] std::optional<std::string> ReadLine(std::string_view prompt) override;
  [[nodiscard]] std::optional<std::string> ReadSecret(std::string_view prompt) override;
  void Write(std::string_view text) override;
  void WriteError(std::string_view text) override;

 private:
  // Waits until there is something to read; false when the program is to end instead.
  bool WaitForInput();
  // False at the end of the input.
  bool FillBuffer();
  [[nodiscard]] bool AskedToEnd() const;

  PollRunLoop& loop_;
  TerminationSignals& signals_;
  Descriptors descriptors_;
  bool reads_from_person_;
  bool writes_to_person_;
  std::string buffer_;
  // How much of the buffer was handed out.
  std::size_t taken_ = 0;
  bool at_end_ = false;
};

}  // namespace tallyfold
