#include "app/face/text_editing.h"

namespace tallyfold {

void TextEditing::Observe() {
  const auto begin = [this](const char& field) {
    return notifications_.Observe(kTextDidBeginEditing, [this, &field](const void* object) {
      if (object == &field) textDidBeginEditing(object);
    });
  };
  const auto end = [this](const char& field) {
    return notifications_.Observe(kTextDidEndEditing, [this, &field](const void* object) {
      if (object == &field) textDidEndEditing(object);
    });
  };
  observations_ = {end(text_field::kDescription), end(text_field::kDebitSplit),
                   end(text_field::kDepositSplit), begin(text_field::kDescription)};
}

void TextEditing::textDidBeginEditing(const void* field) {
  if (field == &text_field::kDescription) host_.DropSuggestion();
}

void TextEditing::textDidEndEditing(const void* field) {
  if (field == &text_field::kDescription) {
    host_.SuggestForDescription();
  } else if (field == &text_field::kDebitSplit) {
    host_.DebitSheet_Split_Table_Field();
  } else if (field == &text_field::kDepositSplit) {
    host_.DepositSheet_Split_Table_Field();
  }
}

}  // namespace tallyfold
