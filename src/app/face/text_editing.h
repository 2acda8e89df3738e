#pragma once

#include <array>
#include <string_view>

#include "platform/notification_center.h"

namespace tallyfold {

// Posted by a front end when the user begins or ends editing in one of the fields of text_field,
// with the address of the field's token as the object.
inline constexpr std::string_view kTextDidBeginEditing = "LDGRTextDidBeginEditing";
inline constexpr std::string_view kTextDidEndEditing = "LDGRTextDidEndEditing";

namespace text_field {
inline constexpr char kDescription = 'd';  // of the debit or deposit sheet, whichever is open
inline constexpr char kDebitSplit = 'p';   // any cell of the debit sheet's split table
inline constexpr char kDepositSplit = 'r';
}  // namespace text_field

// Follows the editing in fields whose end or beginning has consequences in the entry sheets.
class TextEditing {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    virtual void DebitSheet_Split_Table_Field() = 0;
    virtual void DepositSheet_Split_Table_Field() = 0;
    // Offers what an earlier entry of the typed description has.
    virtual void SuggestForDescription() = 0;
    virtual void DropSuggestion() = 0;
  };

  // Both must outlive the component.
  TextEditing(NotificationCenter& notifications, Host& host) noexcept
      : notifications_(notifications), host_(host) {}
  TextEditing(const TextEditing&) = delete;
  TextEditing& operator=(const TextEditing&) = delete;

  void Observe();
  // `field` is the address of a token; any other does nothing.
  void textDidBeginEditing(const void* field);
  void textDidEndEditing(const void* field);

 private:
  NotificationCenter& notifications_;
  Host& host_;
  std::array<NotificationCenter::Observation, 4> observations_;
};

}  // namespace tallyfold
