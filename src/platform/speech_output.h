#pragma once

#include <string>
#include <string_view>

namespace tallyfold {

// Speaks text aloud. Without a voice everything is quiet and never busy.
class SpeechOutput {
 public:
  virtual ~SpeechOutput() = default;
  // Replaces what is being spoken.
  virtual void Speak(std::string_view text) = 0;
  virtual void Stop() = 0;
  [[nodiscard]] virtual bool IsBusy() const = 0;
  // What speaks, as the user may know it; "" without a voice.
  [[nodiscard]] virtual std::string VoiceName() const { return {}; }
};

}  // namespace tallyfold
