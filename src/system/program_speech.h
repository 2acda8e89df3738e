#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
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
    // Of a program that has a server speak, which goes on when the program is ended: with these it
    // silences the server. Empty for one that speaks itself.
    std::vector<std::string> silencing = {};
  };

  // Uses the first voice that can be started. One that fails within kFailsAtOnce, as a program
  // without its server does, hands its text and all later ones over to the next.
  ProgramSpeech(RunLoop& loop, std::vector<Voice> voices);
  // With the speech programs of the system.
  explicit ProgramSpeech(RunLoop& loop);
  ~ProgramSpeech() override;

  void Speak(std::string_view text) override;
  void Stop() override;
  [[nodiscard]] bool IsBusy() const override;
  // The program that speaks, or would, as far as can be told without starting it.
  [[nodiscard]] std::string VoiceName() const override;

  static constexpr std::chrono::milliseconds kFailsAtOnce{3000};
  // How often the programs are looked at, and how long one may take to silence its server.
  static constexpr std::chrono::milliseconds kBetweenLooks{20};
  static constexpr std::chrono::milliseconds kLongestSilencing{2000};

 private:
  [[nodiscard]] bool HasFailedAtOnce() const;
  void StartVoice();
  void GoOn();

  RunLoop& loop_;
  std::vector<Voice> voices_;
  // The one in use; as many as there are when none is left.
  std::size_t voice_ = 0;
  // What is spoken, or will be as soon as the server is silent; "" for nothing.
  std::string text_;
  bool has_started_ = false;
  std::chrono::milliseconds start_{0};
  // Asking whether one runs is what clears an ended one away.
  mutable ChildProcess speaker_;
  ChildProcess silencer_;
  std::chrono::milliseconds silencing_end_{0};
  DelayedCall look_;
  DelayedCall watchdog_;
};

}  // namespace tallyfold
