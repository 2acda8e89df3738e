#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/notification_center.h"

namespace tallyfold {

class AccountPasswords;
class ApplicationLock;
class EntryEditing;
class PreferencesSheet;
class RegisterSearch;
class ScheduleReminder;

// Posted by a front end when the user begins or ends editing in one of the fields of text_field,
// with the address of the field's token as the object.
inline constexpr std::string_view kTextDidBeginEditing = "LDGRTextDidBeginEditing";
inline constexpr std::string_view kTextDidEndEditing = "LDGRTextDidEndEditing";

namespace text_field {
inline constexpr char kDescription = 'd';  // of the debit or deposit sheet, whichever is open
inline constexpr char kDebitSplit = 'p';   // any cell of the debit sheet's split table
inline constexpr char kDepositSplit = 'r';
}  // namespace text_field

// Follows the editing in fields whose beginning, end or every key has consequences elsewhere.
class TextEditing {
 public:
  // The fields that are followed key by key, by the names of their controls.
  enum class TypedField : std::uint8_t {
    search_Field,
    authenticationSheet_Password,
    accountAuthenticationSheet_Password,
    preferencesSheet_Password,
    preferencesSheet_PasswordAgain,
    scheduleReminderSheet_LookAhead,
  };

  // Whose fields these are.
  struct Parts {
    EntryEditing& entries;
    RegisterSearch& search;
    ApplicationLock& lock;
    AccountPasswords& account_passwords;
    PreferencesSheet& preferences;
    ScheduleReminder& reminder;
  };

  // All must outlive this.
  TextEditing(NotificationCenter& notifications, const Parts& parts) noexcept
      : notifications_(notifications), parts_(parts) {}
  TextEditing(const TextEditing&) = delete;
  TextEditing& operator=(const TextEditing&) = delete;

  // Listens from here on.
  void Observe();
  // `field` is the address of a token; any other does nothing.
  void textDidBeginEditing(const void* field);
  void textDidEndEditing(const void* field);
  // The text of that field is `text` now.
  void controlTextDidChange(TypedField field, std::string_view text);

 private:
  NotificationCenter& notifications_;
  Parts parts_;
  std::array<NotificationCenter::Observation, 4> observations_;
};

}  // namespace tallyfold
