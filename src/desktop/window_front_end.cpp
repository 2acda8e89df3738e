#include "desktop/window_front_end.h"

#include <QApplication>

#include "desktop/command_actions.h"
#include "desktop/date_jump_panel.h"
#include "desktop/drawer/accounts_list.h"
#include "desktop/find_panel.h"
#include "desktop/first_painting.h"
#include "desktop/main_window.h"
#include "desktop/menu_bar.h"
#include "desktop/search_strip.h"
#include "desktop/services/event_watch.h"
#include "desktop/sheets/review_host.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/sheets/update_window.h"
#include "desktop/status_line.h"
#include "desktop/tab_strip.h"
#include "desktop/tabs/reconcile_band.h"
#include "desktop/tabs/register_page.h"
#include "desktop/tabs/schedule_tab.h"
#include "desktop/tabs/summary_tab.h"
#include "desktop/tool_bars.h"

namespace tallyfold::desktop {

void WindowFrontEnd::Changed(Area area) {
  ShowArea(area);
  // Whatever changes may be what a command waits for.
  const MainWindow::Pieces& pieces = window_.pieces();
  pieces.actions->Show();
  pieces.tools->Show();
  pieces.status->ShowNotice();
  // A sheet in its way may have closed.
  pieces.updates->Show();
}

void WindowFrontEnd::ShowArea(Area area) {
  const MainWindow::Pieces& pieces = window_.pieces();
  switch (area) {
    case Area::Accounts:
      pieces.accounts->Show();
      pieces.entries->Show();
      pieces.reconcile->Show();
      return pieces.menus->ShowAccounts();
    case Area::AccountMenu:
      return pieces.menus->ShowAccounts();
    case Area::WindowTitle:
      return window_.ShowTitle();
    case Area::SelectedAccount:
      window_.ShowTitle();
      pieces.menus->ShowAccounts();
      pieces.accounts->Show();
      pieces.search->Show();
      pieces.schedule->Show();
      pieces.entries->Show();
      return pieces.reconcile->Show();
    case Area::Registers:
    case Area::RegisterColumns:
      pieces.entries->Show();
      pieces.reconcile->Show();
      // Entries that it found may have gone.
      pieces.find->Show();
      return pieces.status->ShowRows();
    case Area::SelectedEntry:
      pieces.entries->ShowDetails();
      pieces.reconcile->ShowDetails();
      pieces.menus->ShowTypes();
      return pieces.status->ShowBalance();
    case Area::EntryTypeMenu:
      return pieces.menus->ShowTypes();
    case Area::TransferLinking:
      return pieces.status->ShowLinking();
    case Area::EntryFind:
      return pieces.find->Show();
    case Area::DateJump:
      return pieces.date_jump->Show();
    case Area::BackUp:
      return pieces.status->ShowBackUp();
    case Area::Schedules:
    case Area::ScheduleButtons:
      pieces.schedule->Show();
      return pieces.status->ShowRows();
    case Area::Balance:
      pieces.accounts->Show();
      return pieces.status->ShowBalance();
    case Area::ReconcileBalances:
      return pieces.band->Show();
    case Area::Summary:
      return pieces.summary->Show();
    case Area::Tabs:
      pieces.tabs->Show();
      window_.ShowPage();
      pieces.entries->Show();
      pieces.reconcile->Show();
      pieces.search->Show();
      pieces.menus->ShowTypes();
      return pieces.status->ShowBalance();
    case Area::AccountsDrawer:
      return window_.ShowDrawer();
    case Area::Search:
      pieces.search->Show();
      pieces.entries->Show();
      return pieces.reconcile->Show();
    case Area::Preferences:
      window_.ShowDrawer();
      pieces.accounts->Show();
      pieces.entries->Show();
      pieces.reconcile->Show();
      pieces.band->Show();
      pieces.schedule->Show();
      pieces.summary->Show();
      return pieces.status->ShowBalance();
    case Area::Sheet:
      // The one for the first account may have been put away.
      pieces.accounts->Show();
      pieces.entries->Show();
      pieces.reconcile->Show();
      [[fallthrough]];
    case Area::DebitSheet:
    case Area::DepositSheet:
    case Area::TransferSheet:
    case Area::EntryRemoveSheet:
    case Area::TransferEntryRemoveSheet:
    case Area::ScheduleSheet:
    case Area::ScheduleRemoveSheet:
    case Area::ScheduleReminderSheet:
    case Area::AccountEditSheet:
    case Area::AccountSummarySheet:
    case Area::AuthenticationSheet:
    case Area::AccountAuthenticationSheet:
    case Area::PreferencesSheet:
    case Area::ImportOptionsSheet:
    case Area::BackupsSheet:
    case Area::AboutSheet:
    case Area::PrintSheet:
      pieces.menus->ShowAccounts();
      pieces.sheets->Show();
      return window_.ShowVeil();
    case Area::ImportReview:
      return pieces.review->Show();
    default:
      return;
  }
}

bool WindowFrontEnd::EndEditing(Sheet sheet) {
  return window_.pieces().sheets->EndEditing(sheet);
}

void WindowFrontEnd::AddKeyEquivalent(const KeyEquivalent& equivalent) {
  window_.pieces().actions->AddKeyEquivalent(equivalent);
}

// The height of the rows goes with the font.
void WindowFrontEnd::updateTableFonts() {
  window_.ShowLook();
}

void WindowFrontEnd::SetUpControls() {
  window_.ShowDrawer();
  window_.pieces().search->Show();
  window_.pieces().band->Show();
  window_.pieces().status->ShowBalance();
}

void WindowFrontEnd::Internationalize() {
  window_.ShowTitle();
}

void WindowFrontEnd::SetTabViewImages() {
  window_.pieces().tabs->SetImages();
  window_.pieces().tools->Show();
}

void WindowFrontEnd::Show() {
  window_.Place();
  window_.show();
  BringToFront();
}

void WindowFrontEnd::BeforeLoad() {
  // No field has the focus until there is something to type it for.
  window_.setFocus();
  AwaitFirstPainting(window_);
  window_.clearFocus();
}

void WindowFrontEnd::FocusSearchField() {
  window_.pieces().search->FocusField();
}

void WindowFrontEnd::FocusAccountsTable() {
  window_.pieces().accounts->FocusTable();
}

void WindowFrontEnd::FocusPasswordField() {
  auto* field = window_.findChild<QWidget*>(QStringLiteral("preferencesSheet_Password_Field"));
  if (field != nullptr) field->setFocus();
}

void WindowFrontEnd::BringToFront() {
  window_.raise();
  window_.activateWindow();
}

void WindowFrontEnd::RememberFirstResponder() {
  first_responder_ = window_.focusWidget();
}

void WindowFrontEnd::RestoreFirstResponder() {
  if (first_responder_) first_responder_->setFocus(Qt::OtherFocusReason);
}

void WindowFrontEnd::SetContentsEnabled(bool are_enabled) {
  window_.SetContentsEnabled(are_enabled);
}

bool WindowFrontEnd::IsMain() {
  return window_.isActiveWindow();
}

bool WindowFrontEnd::UserIsTracking() {
  return EventWatch::UserIsTracking();
}

void WindowFrontEnd::RedrawTitledWindows() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool is_titled = window->windowTitle().isNull() || !window->windowTitle().isEmpty();
    if (window->isVisible() && is_titled) window->update();
  }
}

void WindowFrontEnd::Close() {
  window_.close();
}

}  // namespace tallyfold::desktop
