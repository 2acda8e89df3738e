#pragma once

#include "app/face/front_end.h"

namespace tallyfold {

// Which sheet is attached to the main window.
class SheetSlot {
 public:
  explicit SheetSlot(FrontEnd& front_end) noexcept : front_end_(front_end) {}
  SheetSlot(const SheetSlot&) = delete;
  SheetSlot& operator=(const SheetSlot&) = delete;

  [[nodiscard]] Sheet Current() const noexcept { return current_; }
  [[nodiscard]] bool IsFree() const noexcept { return current_ == Sheet::None; }
  // False, and nothing changes, while any sheet is open.
  bool Open(Sheet sheet);
  // Does nothing when another sheet or none is open.
  void Close(Sheet sheet);

 private:
  FrontEnd& front_end_;
  Sheet current_ = Sheet::None;
};

}  // namespace tallyfold
