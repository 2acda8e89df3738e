#pragma once

#include <optional>
#include <string>

#include "app/face/problem.h"

namespace tallyfold {

// What the sheets that ask for a password show: that of the application and that of an account.
struct PasswordSheetState {
  // Typed by the user.
  struct Typed {
    std::string password;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  // The line above the field; "" for the application's sheet.
  std::string title;
  bool ok_is_enabled = false;
  // Of authenticationSheet_Password_Field or accountAuthenticationSheet_Password_Field, and without
  // a text: nothing is said about a wrong password.
  std::optional<Problem> problem;
};

}  // namespace tallyfold
