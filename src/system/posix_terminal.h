#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/terminal.h"
#include "system/line_editor.h"
#include "system/poll_run_loop.h"
#include "system/termination_signals.h"

namespace tallyfold {

// Standard input, output and error. Takes the signals: an interrupt drops the line that a person
// types, every other one, and an interrupt where no person types, ends the input; so does stopping
// the run loop while a person thinks. Writing where nobody reads any more no longer ends the
// process once there is one of these.
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
  [[nodiscard]] std::size_t Width() const override;
  [[nodiscard]] std::optional<std::string> ReadLine(std::string_view prompt) override;
  [[nodiscard]] std::optional<std::string> ReadCommand(std::string_view prompt,
                                                       const LineAids& aids) override;
  [[nodiscard]] std::optional<std::string> ReadSecret(std::string_view prompt) override;
  void Write(std::string_view text) override;
  void WriteError(std::string_view text) override;
  void WriteMeanwhile(std::string_view line) override;
  [[nodiscard]] bool HasLostOutput() const override { return has_lost_output_; }

  // The signal that ended the input; none where none did.
  [[nodiscard]] std::optional<int> EndingSignal() const noexcept { return ending_signal_; }

 private:
  using Read = LineEditor::Read;

  // The next line, edited where that can be.
  [[nodiscard]] std::optional<std::string> ReadAny(std::string_view prompt, const LineAids* aids);
  [[nodiscard]] Read ReadPlain(std::string& line);
  [[nodiscard]] Read ReadCharacter(char32_t& character);
  [[nodiscard]] LineEditor* Editor();
  void ForgetInput() noexcept;
  // Waits until there is something to read, and takes it.
  [[nodiscard]] Read TakeInput();
  // False when the program is to end, or the line is dropped.
  bool WaitForInput();
  // False at the end of the input.
  bool FillBuffer();
  // Takes the signals that have come.
  void NoticeSignals();

  PollRunLoop& loop_;
  TerminationSignals& signals_;
  Descriptors descriptors_;
  bool reads_from_person_;
  bool writes_to_person_;
  std::string buffer_;
  // How much of the buffer was handed out.
  std::size_t taken_ = 0;
  bool at_end_ = false;
  bool has_lost_output_ = false;
  // An interrupt has come since a line was begun.
  bool is_interrupted_ = false;
  std::optional<int> ending_signal_;
  // What stands in front of the line that is being read.
  std::string prompt_;
  std::unique_ptr<LineEditor> editor_;
  bool has_tried_editor_ = false;
};

}  // namespace tallyfold
