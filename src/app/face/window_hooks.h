#pragma once

#include <cstdint>

namespace tallyfold {

// A key that, held with the command key (and the option key), runs a command that has no button.
struct KeyEquivalent {
  enum class Command : std::uint8_t { depositEntry_MenuItem, schedule_Deposit_MenuItem };

  char key = '+';
  bool with_option = false;
  Command command = Command::depositEntry_MenuItem;
};

// What the launch and the life of the application ask of the main window beside showing states
// (see FrontEnd). Each operation here is that of a program without a window: it does nothing.
class WindowHooks {
 public:
  // Names under which the frames of the window and of the accounts list are kept between runs.
  static constexpr const char* kFrameName = "Tallyfold.mainWindow";
  static constexpr const char* kAccountsTableFrameName = "Tallyfold.accountsDrawer_Accounts_Table";

  virtual ~WindowHooks() = default;

  // Before the launch.
  virtual void AddKeyEquivalent(const KeyEquivalent& /*equivalent*/) {}

  // The steps of the launch, in their order.
  virtual void LoadDatePicker() {}
  virtual void SetUpBezels() {}
  virtual void updateTableFonts() {}
  // The height of a row is that of a cell that shows "Xy" in the register's font.
  virtual void UpdateTableRowHeights() {}
  virtual void SetUpControls() {}
  // Puts every text of the interface in place.
  virtual void Internationalize() {}
  virtual void SetTabViewImages() {}
  // Centres the window, puts it where it was last and brings it to the front.
  virtual void Show() {}
  // The accounts are about to be loaded, which may take long: what there is of the window comes
  // into sight.
  virtual void BeforeLoad() {}
  virtual void FocusSearchField() {}
  virtual void FocusAccountsTable() {}
  virtual void CenterUpdateWindow() {}

  // The password field of the preferences sheet takes the focus.
  virtual void FocusPasswordField() {}
  virtual void BringToFront() {}
  // A sheet that asks for a password takes the focus for itself and gives it back when it closes;
  // meanwhile nothing in the window and in the accounts drawer can be used.
  virtual void RememberFirstResponder() {}
  virtual void RestoreFirstResponder() {}
  virtual void SetContentsEnabled(bool /*are_enabled*/) {}
  // Whether the window is the application's main one at the moment.
  [[nodiscard]] virtual bool IsMain() { return true; }
  // Whether the user has a menu or a list open or drags something: nothing may come up then, or
  // change under the pointer.
  [[nodiscard]] virtual bool UserIsTracking() { return false; }
  // Draws the visible windows anew that have a title or never had one set.
  virtual void RedrawTitledWindows() {}
  virtual void Close() {}
};

// The main window in use, for components that are made before it; a quiet one without any.
class WindowHooksSlot {
 public:
  // Null for none. It must outlive its stay here.
  void Set(WindowHooks* window) noexcept { window_ = window != nullptr ? window : &quiet_; }
  WindowHooks* operator->() const noexcept { return window_; }

  WindowHooksSlot() = default;
  WindowHooksSlot(const WindowHooksSlot&) = delete;
  WindowHooksSlot& operator=(const WindowHooksSlot&) = delete;

 private:
  WindowHooks quiet_;
  WindowHooks* window_ = &quiet_;
};

}  // namespace tallyfold
