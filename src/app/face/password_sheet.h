#pragma once

#include <string>

#include "app/face/announcer.h"
#include "app/face/front_end.h"
#include "app/face/password_sheet_state.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"

namespace tallyfold {

// A sheet that asks for a password: that of the application or that of an account.
class PasswordSheet {
 public:
  PasswordSheet(Sheet which, Area area, SheetSlot& sheets, WindowHooksSlot& window,
                Announcer& announcer) noexcept
      : which_(which), area_(area), sheets_(sheets), window_(window), announcer_(announcer) {}
  PasswordSheet(const PasswordSheet&) = delete;
  PasswordSheet& operator=(const PasswordSheet&) = delete;

  [[nodiscard]] const PasswordSheetState& State() const noexcept { return state_; }

  // Shows the sheet, its field empty and OK disabled. Nothing while a sheet is open.
  void Open(std::string title);
  // A keystroke: takes over the text; OK is enabled when it is the password.
  void ValidatePassword(std::string typed, const std::string& password);
  // OK with a wrong password.
  void Refuse();
  // Hides the sheet and gives the focus back to where it was. Nothing when it is not open.
  void Close();

 private:
  const Sheet which_;
  const Area area_;
  SheetSlot& sheets_;
  WindowHooksSlot& window_;
  Announcer& announcer_;
  PasswordSheetState state_;
};

}  // namespace tallyfold
