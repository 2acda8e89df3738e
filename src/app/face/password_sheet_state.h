#pragma once

#include <string>

namespace tallyfold {

// What the sheets that ask for a password show: that of the application and that of an account.
struct PasswordSheetState {
  // Typed by the user.
  std::string typed;

  // Decided by the program.
  bool is_open = false;
  // The line above the field; "" for the application's sheet.
  std::string title;
  // A message beside the field; emptied when the password is right.
  std::string alert;
  bool ok_is_enabled = false;
};

}  // namespace tallyfold
