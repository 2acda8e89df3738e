#pragma once

#include "desktop/test_window.h"

namespace tallyfold::desktop {

// A hand at the keyboard of a window: goes by keys to what has a name, and types. Throws
// std::logic_error where no key leads there.
class Hand {
 public:
  explicit Hand(TestWindow& window) : test(window) {}

  // By Tab from where the focus is.
  static void To(const char* name);
  // In the place of what the field held.
  static void Type(const char* name, const char* text);
  static void Press(const char* name);
  static void Choose(const char* pop_up, const char* title);
  // A check box, or one of several choices.
  static void Tick(const char* name, bool is_ticked = true);
  // A row of a table, counted from its end.
  static void RowFromEnd(const char* table, int up);
  // A page of a sheet, from anywhere in it.
  static void Page(const char* list, const char* title);
  // A command of the menus, by their keys.
  void Order(const char* command);

  TestWindow& test;
};

}  // namespace tallyfold::desktop
