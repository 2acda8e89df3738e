#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "filters/register_search.h"
#include "model/account_entry.h"
#include "platform/run_loop.h"
#include "platform/speech_output.h"
#include "registers/account_table_view_data.h"
#include "registers/speech_synthesizer.h"

namespace tallyfold {

// Reads entries aloud: the selected one, or the rows of a register one after another with a pause
// between them. A reading follows the selection: each step goes on from the row that is selected by
// then, and ends the reading where there is nothing to go on from. Without a voice the selection
// moves all the same.
class EntrySpeaker {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Whether the register window is the application's main window.
    [[nodiscard]] virtual bool RegisterWindowIsMain() const = 0;
    [[nodiscard]] virtual RegisterKind ShownRegister() const = 0;
    // Null when there is none.
    [[nodiscard]] virtual LDGRAccountTableViewData* CurrentRegister() = 0;
    // In seconds.
    [[nodiscard]] virtual float PauseBetweenSpokenEntries() const = 0;
  };

  // Everything given must outlive the speaker.
  EntrySpeaker(RunLoop& loop, SpeechOutput& output, Host& host) noexcept
      : host_(host), synthesizer_(loop, output), next_(loop) {}
  EntrySpeaker(const EntrySpeaker&) = delete;
  EntrySpeaker& operator=(const EntrySpeaker&) = delete;

  // Speaks the entry that is selected in the table whose contextual menu was used, instead of
  // whatever is being said; null does nothing.
  void SpeakEntry(const LDGRAccountEntry* selected);
  // The same for an entry that has its text already.
  void SpeakText(std::string text);
  // Reads the rows from the selected one on, or from the first one. Without a register in the main
  // window, and without such a row, they do nothing.
  void StartSpeakingEntries();
  void SpeakEntries();
  // The next step of a reading.
  void speakNextEntry();
  // Ends speech, what is still to be said and a reading.
  void StopSpeech();

  // Whether a reading is under way.
  [[nodiscard]] bool IsReading() const noexcept { return next_.IsPending(); }

 private:
  // The register to read; null when none is shown.
  [[nodiscard]] LDGRAccountTableViewData* ReadableRegister();
  void StartReading(const LDGRAccountEntry& entry);
  void ContinueAfter(std::chrono::milliseconds delay);

  Host& host_;
  LDGRSpeechSynthesizer synthesizer_;
  DelayedCall next_;
};

}  // namespace tallyfold
