#pragma once

#include <QPointer>

#include "app/face/front_end.h"
#include "app/face/window_hooks.h"

class QWidget;

namespace tallyfold::desktop {

class MainWindow;

// Tells the pieces of the window what has changed, and does what the application asks of a window.
class WindowFrontEnd final : public FrontEnd, public WindowHooks {
 public:
  // The window must outlive this.
  explicit WindowFrontEnd(MainWindow& window) noexcept : window_(window) {}
  WindowFrontEnd(const WindowFrontEnd&) = delete;
  WindowFrontEnd& operator=(const WindowFrontEnd&) = delete;

  void Changed(Area area) override;
  [[nodiscard]] bool EndEditing(Sheet sheet) override;

  void AddKeyEquivalent(const KeyEquivalent& equivalent) override;
  void updateTableFonts() override;
  void SetUpControls() override;
  void Internationalize() override;
  void SetTabViewImages() override;
  void Show() override;
  void BeforeLoad() override;
  void FocusSearchField() override;
  void FocusAccountsTable() override;
  void FocusPasswordField() override;
  void BringToFront() override;
  void RememberFirstResponder() override;
  void RestoreFirstResponder() override;
  void SetContentsEnabled(bool are_enabled) override;
  [[nodiscard]] bool IsMain() override;
  [[nodiscard]] bool UserIsTracking() override;
  void RedrawTitledWindows() override;
  void Close() override;

 private:
  void ShowArea(Area area);

  MainWindow& window_;
  QPointer<QWidget> first_responder_;
};

}  // namespace tallyfold::desktop
