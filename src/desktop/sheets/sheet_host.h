#pragma once

#include <QList>
#include <QPointer>
#include <functional>
#include <map>
#include <utility>

#include "app/face/front_end.h"

class QAction;
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

  // Actions whose keys work in every sheet as well. They must outlive the sheets.
  void SetActions(QList<QAction*> actions) { actions_ = std::move(actions); }
  [[nodiscard]] const QList<QAction*>& Actions() const noexcept { return actions_; }

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
  QList<QAction*> actions_;
  std::map<Sheet, Make> makers_;
  Sheet shown_ = Sheet::None;
  QPointer<SheetDialog> dialog_;
};

}  // namespace tallyfold::desktop
