#pragma once

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "app/views/registers.h"
#include "model/date_number.h"

namespace tallyfold {

struct DateJumpState {
  // The field for the day is up.
  bool is_open = false;
  // What it first shows: the day of the selected entry, else today.
  DateNumber day = kNullDate;
};

// Goes to a day in the current register, which comes to the fore.
class DateJump {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Shows the current register, if another tab is showing.
    virtual void ShowRegister() = 0;
  };

  DateJump(Host& host, Desk& desk, Registers& registers, const SheetSlot& sheets,
           Announcer& announcer) noexcept
      : host_(host), desk_(desk), registers_(registers), sheets_(sheets), announcer_(announcer) {}
  DateJump(const DateJump&) = delete;
  DateJump& operator=(const DateJump&) = delete;

  [[nodiscard]] const DateJumpState& State() const noexcept { return state_; }
  // Puts the field up, or to the fore. Nothing without an account and while a sheet is open.
  void Open();
  void Close();
  // Selects the first entry on or after the day, whatever the order of the rows; where all are
  // earlier, the last. Of entries of one day the uppermost. Closes the field. False without rows.
  bool Go(DateNumber day);

 private:
  Host& host_;
  Desk& desk_;
  Registers& registers_;
  const SheetSlot& sheets_;
  Announcer& announcer_;
  DateJumpState state_;
};

}  // namespace tallyfold
