#pragma once

#include <QMainWindow>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

class QStackedWidget;

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::desktop {

class AccountsList;
class CommandActions;
class DateJumpPanel;
class DrawerSplitter;
class EntryActions;
class FindPanel;
class HelpKey;
class MenuBar;
class Printers;
class ProgressBar;
class ReconcileBand;
class RegisterPage;
class ScheduleTab;
class SearchStrip;
class ReviewHost;
class SheetHost;
class UpdateWindowHost;
class StatusLine;
class SummaryTab;
class TabStrip;
class ToolBars;
class Veil;
class UserSettings;

// The window: puts its pieces into their places and connects them. Each shows the part of the
// application that it was given; when, the front end tells (see window_front_end.h).
class MainWindow final : public QMainWindow {
 public:
  // Both must outlive the window, and the settings the frames that it saves.
  MainWindow(LDGRController& app, UserSettings& settings);
  ~MainWindow() override;

  // Owned by the window.
  struct Pieces {
    CommandActions* actions = nullptr;
    MenuBar* menus = nullptr;
    ToolBars* tools = nullptr;
    AccountsList* accounts = nullptr;
    TabStrip* tabs = nullptr;
    SearchStrip* search = nullptr;
    RegisterPage* entries = nullptr;
    RegisterPage* reconcile = nullptr;
    ReconcileBand* band = nullptr;
    ScheduleTab* schedule = nullptr;
    SummaryTab* summary = nullptr;
    StatusLine* status = nullptr;
    ProgressBar* progress = nullptr;
    DateJumpPanel* date_jump = nullptr;
    FindPanel* find = nullptr;
    SheetHost* sheets = nullptr;
    ReviewHost* review = nullptr;
    UpdateWindowHost* updates = nullptr;
  };
  [[nodiscard]] const Pieces& pieces() const noexcept { return pieces_; }

  // What there is to print on, in place of the printers of this computer.
  void SetPrinters(std::unique_ptr<Printers> printers);
  // Behind the title of the account.
  void SetTitleEnding(const QString& ending) { title_ending_ = ending; }
  // Orders the copy of the example in a process of its own.
  void SetOpenExample(std::function<void()> open) { open_example_ = std::move(open); }

  void ShowTitle();
  // Draws all tables as the preferences want them now.
  void ShowLook();
  // Places the drawer at the edge of the preferences, open or closed, as wide as they want it.
  void ShowDrawer();
  // Shows the page of the tab.
  void ShowPage();
  // Tells the status line which rows are selected.
  void ShowSelection();
  // The table or list of the tab takes the keyboard focus.
  void FocusPage();
  // In the middle of the screen, or where it was last.
  void Place();
  void SaveFrames();
  // What the window holds, apart from its menus, can be used.
  void SetContentsEnabled(bool are_enabled);
  // What is being waited for, beside the balance, and how far it has come, below the tabs. Both are
  // painted before this returns.
  void ShowWork(const QString& sentence);
  void ShowProgress(std::uint64_t done, std::uint64_t total);
  void EndWork();
  // Darkened while a sheet is open.
  void ShowVeil();

 private:
  void MakePieces();
  void LayOut();
  // The page of the register that is shown, else that of the entries.
  [[nodiscard]] RegisterPage& ShownRegister() const;
  void Connect();
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

  LDGRController& app_;
  UserSettings& settings_;
  Pieces pieces_;
  std::unique_ptr<CommandActions> actions_;
  std::unique_ptr<EntryActions> entry_actions_;
  std::unique_ptr<HelpKey> help_;
  std::unique_ptr<MenuBar> menus_;
  std::unique_ptr<Printers> printers_;
  std::unique_ptr<SheetHost> sheets_;
  std::unique_ptr<ReviewHost> review_;
  std::unique_ptr<UpdateWindowHost> updates_;
  DrawerSplitter* splitter_;
  QWidget* page_;
  Veil* veil_;
  QStackedWidget* pages_;
  QString title_ending_;
  std::function<void()> open_example_;
};

}  // namespace tallyfold::desktop
