#include "registers/entry_speaker.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace tallyfold {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono::milliseconds;

constexpr milliseconds kBeforeOneEntry = 300ms;
constexpr milliseconds kBeforeFirstEntry = 2000ms;
constexpr milliseconds kUntilSecondStep = 3500ms;
constexpr milliseconds kWhileBusy = 250ms;
constexpr milliseconds kFromSpeechToNextStep = 1500ms;

// A stored pause may be anything; none is longer than an hour.
milliseconds PauseOf(float seconds) {
  constexpr float kLongest = 3600.0F;
  if (!(seconds > 0.0F)) return milliseconds{0};
  return milliseconds{std::lround(std::min(seconds, kLongest) * 1000.0F)};
}

}  // namespace

void EntrySpeaker::SpeakEntry(const LDGRAccountEntry* selected) {
  if (selected != nullptr) SpeakText(selected->asSpeakableString());
}

void EntrySpeaker::SpeakText(std::string text) {
  synthesizer_.CancelDelayedRequests();
  synthesizer_.stopSpeaking();
  synthesizer_.SpeakLater(std::move(text), kBeforeOneEntry);
}

void EntrySpeaker::StartSpeakingEntries() {
  const LDGRAccountTableViewData* const rows = ReadableRegister();
  if (rows == nullptr) return;
  if (const auto selected = rows->GetSelectedEntry()) StartReading(*selected);
}

void EntrySpeaker::SpeakEntries() {
  LDGRAccountTableViewData* const rows = ReadableRegister();
  if (rows == nullptr) return;
  const auto first = rows->RowToEntry(0);
  if (first == nullptr) return;
  rows->SelectRow(0);
  StartReading(*first);
}

void EntrySpeaker::StartReading(const LDGRAccountEntry& entry) {
  synthesizer_.SpeakLater(entry.asSpeakableString(), kBeforeFirstEntry);
  ContinueAfter(kUntilSecondStep);
}

void EntrySpeaker::speakNextEntry() {
  if (synthesizer_.isSpeaking()) return ContinueAfter(kWhileBusy);
  LDGRAccountTableViewData* const rows = ReadableRegister();
  if (rows == nullptr) return;
  if (rows->GetSelectedEntry() == nullptr) return;
  const std::int32_t next_row = rows->GetTableView()->SelectedRow() + 1;
  const auto next = rows->RowToEntry(next_row);
  if (next == nullptr) return;
  rows->SelectRow(next_row);
  const milliseconds pause = PauseOf(host_.PauseBetweenSpokenEntries());
  synthesizer_.SpeakLater(next->asSpeakableString(), pause);
  ContinueAfter(pause + kFromSpeechToNextStep);
}

void EntrySpeaker::StopSpeech() {
  synthesizer_.CancelDelayedRequests();
  synthesizer_.stopSpeaking();
  next_.Cancel();
}

LDGRAccountTableViewData* EntrySpeaker::ReadableRegister() {
  if (!host_.RegisterWindowIsMain() || host_.ShownRegister() == RegisterKind::Other) return nullptr;
  return host_.CurrentRegister();
}

void EntrySpeaker::ContinueAfter(milliseconds delay) {
  next_.Start(delay, [this] { speakNextEntry(); });
}

}  // namespace tallyfold
