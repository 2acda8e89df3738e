#pragma once

#include "desktop/sheets/sheet.h"

namespace tallyfold {
class SheetSlot;
}

namespace tallyfold::desktop {

// In the place of a sheet that nobody has made for the window: can be put away, and no more.
class UnmadeSheet final : public SheetDialog {
 public:
  // `slot` must outlive this.
  UnmadeSheet(SheetSlot& slot, QWidget* window);

  void ShowState() override {}
  void Cancel() override;

 private:
  SheetSlot& slot_;
};

}  // namespace tallyfold::desktop
