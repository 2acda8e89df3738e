#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/run_loop.h"
#include "platform/speech_output.h"

namespace tallyfold::console {

// Passes speech on to the computer's voice. Where there is none, keeps what would have been said
// and when, for a command to show.
class SpokenText final : public SpeechOutput {
 public:
  struct Line {
    std::chrono::milliseconds time;  // of the run loop
    std::string text;
  };

  // Both must outlive this.
  SpokenText(SpeechOutput& voice, const RunLoop& loop) noexcept : voice_(voice), loop_(loop) {}

  void Speak(std::string_view text) override {
    voice_.Speak(text);
    if (!voice_.IsBusy()) lines_.push_back({loop_.Now(), std::string(text)});
  }
  void Stop() override { voice_.Stop(); }
  [[nodiscard]] bool IsBusy() const override { return voice_.IsBusy(); }

  [[nodiscard]] std::size_t size() const noexcept { return lines_.size(); }
  // What was kept, which is then forgotten.
  [[nodiscard]] std::vector<Line> Take() { return std::exchange(lines_, {}); }

 private:
  SpeechOutput& voice_;
  const RunLoop& loop_;
  std::vector<Line> lines_;
};

}  // namespace tallyfold::console
