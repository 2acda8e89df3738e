#include "app/shell/text_editing.h"

#include <string>

#include "app/accounts/account_passwords.h"
#include "app/entries/entry_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/application_lock.h"
#include "app/shell/preferences_sheet.h"
#include "filters/register_search.h"

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
  if (field == &text_field::kDescription) parts_.entries.DropSuggestion();
}

void TextEditing::textDidEndEditing(const void* field) {
  if (field == &text_field::kDescription) {
    parts_.entries.SuggestForDescription();
  } else if (field == &text_field::kDebitSplit) {
    parts_.entries.Debit().Split_Table_Field();
  } else if (field == &text_field::kDepositSplit) {
    parts_.entries.Deposit().Split_Table_Field();
  }
}

void TextEditing::controlTextDidChange(TypedField field, std::string_view text) {
  const auto& preferences = parts_.preferences.State();
  switch (field) {
    case TypedField::Search:
      return parts_.search.Search_Field(text);
    case TypedField::Password:
      return parts_.lock.authenticationSheet_ValidatePassword(std::string(text));
    case TypedField::AccountPassword:
      return parts_.account_passwords.accountAuthenticationSheet_ValidatePassword(
          std::string(text));
    case TypedField::PreferencesPassword:
      return parts_.preferences.preferencesSheet_PasswordValidate(std::string(text),
                                                                  preferences.typed.password_again);
    case TypedField::PreferencesPasswordAgain:
      return parts_.preferences.preferencesSheet_PasswordValidate(preferences.typed.password,
                                                                  std::string(text));
    case TypedField::ReminderLookAhead:
      parts_.reminder.LookAhead(text);
      return;
  }
}

}  // namespace tallyfold
