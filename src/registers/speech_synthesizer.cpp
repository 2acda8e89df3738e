#include "registers/speech_synthesizer.h"

#include <utility>

namespace tallyfold {

void LDGRSpeechSynthesizer::SpeakLater(std::string text, std::chrono::milliseconds delay) {
  requests_.remove_if([](const DelayedCall& request) { return !request.IsPending(); });
  requests_.emplace_back(loop_).Start(delay, [this, text = std::move(text)] { speakString(text); });
}

}  // namespace tallyfold
