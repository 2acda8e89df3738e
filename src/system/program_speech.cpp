#include "system/program_speech.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
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
    : loop_(loop), voices_(std::move(voices)), look_(loop), watchdog_(loop) {}

ProgramSpeech::ProgramSpeech(RunLoop& loop)
    : ProgramSpeech(loop, {{"spd-say", {"--wait", "--"}, {"--cancel"}}, {"espeak-ng", {"--"}}}) {}

ProgramSpeech::~ProgramSpeech() {
  Stop();
  silencer_.LetGo();
}

void ProgramSpeech::Speak(std::string_view text) {
  Stop();
  text_ = AsArgument(text);
  if (voice_ == voices_.size()) voice_ = 0;
  GoOn();
}

std::string ProgramSpeech::VoiceName() const {
  const char* const path = std::getenv("PATH");
  for (std::size_t i = voice_; i < voices_.size(); ++i) {
    const std::string& program = voices_[i].program;
    if (program.find('/') != std::string::npos || path == nullptr) continue;
    std::string_view left = path;
    while (!left.empty()) {
      const std::size_t end = std::min(left.find(':'), left.size());
      const std::string file = std::string(left.substr(0, end)) + '/' + program;
      if (::access(file.c_str(), X_OK) == 0) return program;
      left.remove_prefix(std::min(end + 1, left.size()));
    }
  }
  return {};
}

void ProgramSpeech::Stop() {
  watchdog_.Cancel();
  text_.clear();
  if (std::exchange(has_started_, false) && speaker_.IsRunning()) {
    speaker_.End();
    const Voice& voice = voices_[voice_];
    if (!voice.silencing.empty()) silencer_.Start(voice.program, voice.silencing);
    silencing_end_ = loop_.Now() + kLongestSilencing;
  }
  GoOn();
}

bool ProgramSpeech::IsBusy() const {
  if (text_.empty()) return false;
  if (!has_started_) return true;
  return speaker_.IsRunning() || (HasFailedAtOnce() && voice_ + 1 < voices_.size());
}

bool ProgramSpeech::HasFailedAtOnce() const {
  return speaker_.HasFailed() && loop_.Now() - start_ <= kFailsAtOnce;
}

// Starts the first voice from the one in use on that can be started.
void ProgramSpeech::StartVoice() {
  for (; voice_ < voices_.size(); ++voice_) {
    std::vector<std::string> arguments = voices_[voice_].arguments;
    arguments.push_back(text_);
    if (!speaker_.Start(voices_[voice_].program, arguments)) continue;
    has_started_ = true;
    start_ = loop_.Now();
    const auto characters =
        std::count_if(text_.begin(), text_.end(), [](char byte) { return !IsContinuation(byte); });
    watchdog_.Start(std::max<milliseconds>(kShortestWatch, kWatchPerCharacter * characters),
                    [this] { Stop(); });
    return;
  }
  text_.clear();
}

// A text that is started before its server has silenced the former one could be silenced with it.
void ProgramSpeech::GoOn() {
  look_.Cancel();
  if (silencer_.IsRunning() && loop_.Now() < silencing_end_) {
    return look_.Start(kBetweenLooks, [this] { GoOn(); });
  }
  silencer_.End();
  if (text_.empty()) return;
  if (!has_started_) StartVoice();
  if (!has_started_) return;
  if (speaker_.IsRunning()) {
    if (loop_.Now() - start_ < kFailsAtOnce) look_.Start(kBetweenLooks, [this] { GoOn(); });
    return;
  }
  const bool is_handed_over = HasFailedAtOnce();
  watchdog_.Cancel();
  has_started_ = false;
  if (!is_handed_over) return text_.clear();
  ++voice_;
  GoOn();
}

}  // namespace tallyfold
