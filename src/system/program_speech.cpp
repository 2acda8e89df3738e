#include "system/program_speech.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tallyfold {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kShortestWatch{5000};
constexpr milliseconds kWatchPerCharacter{150};
// An argument may have 128 KiB; nobody listens to so much.
constexpr std::size_t kLongestText = 100'000;

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// What can be handed over as an argument: it ends at the first NUL and must not be too long.
std::string_view AsArgument(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  if (text.size() <= kLongestText) return text;
  std::size_t size = kLongestText;
  while (size > 0 && IsContinuation(text[size])) --size;
  return text.substr(0, size);
}

}  // namespace

ProgramSpeech::ProgramSpeech(RunLoop& loop, std::vector<Voice> voices)
    : voices_(std::move(voices)), watchdog_(loop) {}

ProgramSpeech::ProgramSpeech(RunLoop& loop)
    : ProgramSpeech(loop, {{"spd-say", {"--wait", "--"}}, {"espeak-ng", {"--"}}}) {}

void ProgramSpeech::Speak(std::string_view text) {
  Stop();
  const std::string_view spoken = AsArgument(text);
  if (spoken.empty()) return;
  for (const Voice& voice : voices_) {
    std::vector<std::string> arguments = voice.arguments;
    arguments.emplace_back(spoken);
    if (!running_.Start(voice.program, arguments)) continue;
    const auto characters = spoken.size() - static_cast<std::size_t>(std::count_if(
                                                spoken.begin(), spoken.end(), IsContinuation));
    watchdog_.Start(std::max<milliseconds>(kShortestWatch, kWatchPerCharacter * characters),
                    [this] { running_.End(); });
    return;
  }
}

void ProgramSpeech::Stop() {
  watchdog_.Cancel();
  running_.End();
}

bool ProgramSpeech::IsBusy() const {
  return running_.IsRunning();
}

}  // namespace tallyfold
