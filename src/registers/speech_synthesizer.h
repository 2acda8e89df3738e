#pragma once

#include <chrono>
#include <list>
#include <string>
#include <string_view>

#include "platform/run_loop.h"
#include "platform/speech_output.h"

namespace tallyfold {

// Speech with the default voice, at once or later.
class LDGRSpeechSynthesizer {
 public:
  // Both must outlive the synthesizer; what is still to be said is dropped with it.
  LDGRSpeechSynthesizer(RunLoop& loop, SpeechOutput& output) noexcept
      : loop_(loop), output_(output) {}
  LDGRSpeechSynthesizer(const LDGRSpeechSynthesizer&) = delete;
  LDGRSpeechSynthesizer& operator=(const LDGRSpeechSynthesizer&) = delete;

  // Does not wait for speech in progress.
  void speakString(std::string_view text) { output_.Speak(text); }
  void stopSpeaking() { output_.Stop(); }
  [[nodiscard]] bool isSpeaking() const { return output_.IsBusy(); }

  // speakString() after a delay. Requests do not replace one another.
  void SpeakLater(std::string text, std::chrono::milliseconds delay);
  void CancelDelayedRequests() noexcept { requests_.clear(); }

 private:
  RunLoop& loop_;
  SpeechOutput& output_;
  std::list<DelayedCall> requests_;
};

}  // namespace tallyfold
