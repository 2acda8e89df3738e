#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/run_loop.h"
#include "platform/speech_output.h"

namespace tallyfold {

// What speaking fields of amounts speak.
inline constexpr std::string_view kSpeakableAmountCharacters = "0123456789.,";

// The behaviour of a text field that speaks the characters typed into it. Characters typed faster
// than they are said wait for one another.
class LDGRSpeakingTextField {
 public:
  struct TextRange {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  // All speaking fields share the synthesizer, which nothing else speaks with. Both must outlive
  // the field.
  LDGRSpeakingTextField(RunLoop& loop, SpeechOutput& synthesizer) noexcept
      : synthesizer_(synthesizer), next_(loop) {}
  LDGRSpeakingTextField(const LDGRSpeakingTextField&) = delete;
  LDGRSpeakingTextField& operator=(const LDGRSpeakingTextField&) = delete;
  virtual ~LDGRSpeakingTextField() = default;

  [[nodiscard]] SpeechOutput& speechSynthesizer() const noexcept { return synthesizer_; }
  // Off at first.
  void setSpeaks(bool speaks) noexcept { speaks_ = speaks; }
  [[nodiscard]] bool speaks() const noexcept { return speaks_; }
  // None at first, and for none.
  void setSpeakableCharacters(std::optional<std::string_view> characters) {
    speakable_characters_ = characters.value_or("");
  }
  [[nodiscard]] const std::string& speakableCharacters() const noexcept {
    return speakable_characters_;
  }

  // The text in `range` is about to be replaced: whether it may. Speaks the replacement where it
  // occurs as it stands among the speakable characters; a deletion says nothing.
  [[nodiscard]] bool textView(TextRange range, std::string_view replacement);
  // What waits to be said, oldest first.
  [[nodiscard]] const std::deque<std::string>& itemsToSpeak() const noexcept {
    return items_to_speak_;
  }
  // A missing value is ignored.
  void addItemToSpeak(std::optional<std::string_view> item);
  // Speaks the oldest waiting text as soon as the voice is free.
  void speakNextItem();

 protected:
  // What the field itself says of a change; true unless a subclass knows better.
  [[nodiscard]] virtual bool ShouldChangeText(TextRange range, std::string_view replacement);

 private:
  SpeechOutput& synthesizer_;
  DelayedCall next_;
  std::string speakable_characters_;
  std::deque<std::string> items_to_speak_;
  bool speaks_ = false;
};

}  // namespace tallyfold
