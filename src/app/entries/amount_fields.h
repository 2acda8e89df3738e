#pragma once

#include "platform/run_loop.h"
#include "platform/speech_output.h"
#include "registers/speaking_text_field.h"

namespace tallyfold {

// The amount fields of the entry sheets, which echo typed digits aloud where the user wants it. A
// front end asks its field before each change of the text.
class AmountFields {
 public:
  // Both must outlive the fields.
  AmountFields(RunLoop& loop, SpeechOutput& output)
      : debit(loop, output), deposit(loop, output), transfer(loop, output) {
    for (auto* field : {&debit, &deposit, &transfer}) {
      field->setSpeakableCharacters(kSpeakableAmountCharacters);
    }
  }

  void SetSpeak(bool speak) noexcept {
    for (auto* field : {&debit, &deposit, &transfer}) field->setSpeaks(speak);
  }

  LDGRSpeakingTextField debit;
  LDGRSpeakingTextField deposit;
  LDGRSpeakingTextField transfer;
};

}  // namespace tallyfold
