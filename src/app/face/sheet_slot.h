#pragma once

#include <functional>

#include "app/face/announcer.h"
#include "app/face/front_end.h"

namespace tallyfold {

// Which sheet is attached to the main window.
class SheetSlot {
 public:
  explicit SheetSlot(Announcer& announcer) noexcept : announcer_(announcer) {}
  SheetSlot(const SheetSlot&) = delete;
  SheetSlot& operator=(const SheetSlot&) = delete;

  [[nodiscard]] Sheet Current() const noexcept { return current_; }
  [[nodiscard]] bool IsFree() const noexcept { return current_ == Sheet::None; }
  // False, and nothing changes, while any sheet is open. `cancel` closes the sheet as its Cancel
  // button does; null for one that cannot be put away, such as one that asks for a password.
  bool Open(Sheet sheet, std::function<void()> cancel);
  // Does nothing when another sheet or none is open.
  void Close(Sheet sheet);
  // Cancels the sheet that is open, where that can be done.
  void CancelOpen();

 private:
  Announcer& announcer_;
  Sheet current_ = Sheet::None;
  std::function<void()> cancel_;
};

}  // namespace tallyfold
