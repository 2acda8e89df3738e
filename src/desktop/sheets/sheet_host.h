#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <utility>

#include "app/face/front_end.h"

class QWidget;

namespace tallyfold {
class SheetSlot;
}

namespace tallyfold::desktop {

class SheetDialog;

// Shows the sheet that is open. A sheet is made when it opens and goes when it closes.
class SheetHost final {
 public:
  // Made over that window.
  using Make = std::function<SheetDialog*(QWidget* window)>;

  // Both must outlive the host.
  SheetHost(SheetSlot& slot, QWidget& window) noexcept : slot_(slot), window_(window) {}
  SheetHost(const SheetHost&) = delete;
  SheetHost& operator=(const SheetHost&) = delete;

  // How that sheet is made. All must be set before one opens.
  void Set(Sheet sheet, Make make) { makers_[sheet] = std::move(make); }

  // Sheets open over that window in place of the one they are of, while it is there; null for none.
  void SetOver(QWidget* window) { over_ = window; }

  // Opens, closes or shows anew, as the application wants it.
  void Show();
  // As FrontEnd::EndEditing().
  [[nodiscard]] bool EndEditing(Sheet sheet);
  [[nodiscard]] bool IsOpen() const { return !dialog_.isNull(); }
  // Brings the open one before the user.
  void Raise();

 private:
  [[nodiscard]] QWidget& Below() const { return over_ ? *over_ : window_; }

  SheetSlot& slot_;
  QWidget& window_;
  QPointer<QWidget> over_;
  std::map<Sheet, Make> makers_;
  Sheet shown_ = Sheet::None;
  QPointer<SheetDialog> dialog_;
};

}  // namespace tallyfold::desktop
