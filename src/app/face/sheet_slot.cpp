#include "app/face/sheet_slot.h"

#include <utility>

namespace tallyfold {

bool SheetSlot::Open(Sheet sheet, std::function<void()> cancel) {
  if (!IsFree()) return false;
  current_ = sheet;
  cancel_ = std::move(cancel);
  announcer_.Changed(Area::Sheet);
  return true;
}

void SheetSlot::Close(Sheet sheet) {
  if (current_ != sheet) return;
  current_ = Sheet::None;
  cancel_ = nullptr;
  announcer_.Changed(Area::Sheet);
}

void SheetSlot::CancelOpen() {
  // Closing takes the function away that does it.
  if (const auto cancel = cancel_) cancel();
}

}  // namespace tallyfold
