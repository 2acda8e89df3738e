#pragma once

#include <string>
#include <vector>

#include "platform/run_loop.h"
#include "platform/speech_output.h"
#include "system/child_process.h"

namespace tallyfold {

// Speaks by starting a speech program for each text, and is busy while that runs. A program that
// hangs, as they do without a sound device, is ended after the time that speaking could take.
class ProgramSpeech final : public SpeechOutput {
 public:
  // A program that speaks its last argument before it ends.
  struct Voice {
    std::string program;
    std::vector<std::string> arguments;  // before the text
  };

  // Uses the first voice that can be started.
  ProgramSpeech(RunLoop& loop, std::vector<Voice> voices);
  // With the speech programs of the system.
  explicit ProgramSpeech(RunLoop& loop);

  void Speak(std::string_view text) override;
  void Stop() override;
  [[nodiscard]] bool IsBusy() const override;

 private:
  std::vector<Voice> voices_;
  // Asking whether it runs is what clears an ended one away.
  mutable ChildProcess running_;
  DelayedCall watchdog_;
};

}  // namespace tallyfold
