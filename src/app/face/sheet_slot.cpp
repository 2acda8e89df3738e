#include "app/face/sheet_slot.h"

namespace tallyfold {

bool SheetSlot::Open(Sheet sheet) {
  if (!IsFree()) return false;
  current_ = sheet;
  front_end_.Changed(Area::Sheet);
  return true;
}

void SheetSlot::Close(Sheet sheet) {
  if (current_ != sheet) return;
  current_ = Sheet::None;
  front_end_.Changed(Area::Sheet);
}

}  // namespace tallyfold
