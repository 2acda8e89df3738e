#include "registers/speaking_text_field.h"

#include <chrono>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr std::chrono::milliseconds kFieldWhileBusy{100};

std::string InWords(std::string_view characters) {
  std::string words;
  for (const char c : characters) {
    if (c == '.') {
      words += LocalizedText("point");
    } else if (c == ',') {
      words += LocalizedText("comma");
    } else {
      words += c;
    }
  }
  return words;
}

}  // namespace

bool LDGRSpeakingTextField::textView(TextRange range, std::string_view replacement) {
  if (!ShouldChangeText(range, replacement)) return false;
  const bool is_spoken = speaks() && !replacement.empty() &&
                         speakableCharacters().find(replacement) != std::string::npos;
  if (is_spoken) {
    addItemToSpeak(InWords(replacement));
    speakNextItem();
  }
  return true;
}

bool LDGRSpeakingTextField::ShouldChangeText(TextRange /*range*/,
                                             std::string_view /*replacement*/) {
  return true;
}

void LDGRSpeakingTextField::addItemToSpeak(std::optional<std::string_view> item) {
  if (item) items_to_speak_.emplace_back(*item);
}

void LDGRSpeakingTextField::speakNextItem() {
  if (items_to_speak_.empty()) return;
  if (!speechSynthesizer().IsBusy()) {
    speechSynthesizer().Speak(items_to_speak_.front());
    items_to_speak_.pop_front();
    if (items_to_speak_.empty()) return;
  }
  // A try that is already due comes first anyway.
  if (!next_.IsPending()) next_.Start(kFieldWhileBusy, [this] { speakNextItem(); });
}

}  // namespace tallyfold
