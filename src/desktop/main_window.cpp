#include "desktop/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/exchange/qif_import_command.h"
#include "app/face/window_hooks.h"
#include "app/shell/lifecycle.h"
#include "app/shell/print_sheet.h"
#include "app/shell/tabs.h"
#include "app/views/entry_details.h"
#include "app/views/reconcile_tab.h"
#include "desktop/command_actions.h"
#include "desktop/date_jump_panel.h"
#include "desktop/drawer/accounts_list.h"
#include "desktop/drawer/drawer_splitter.h"
#include "desktop/entry_actions.h"
#include "desktop/find_panel.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/menu_bar.h"
#include "desktop/print/qt_printers.h"
#include "desktop/progress_bar.h"
#include "desktop/register/register_view.h"
#include "desktop/search_strip.h"
#include "desktop/services/user_settings.h"
#include "desktop/sheets/help_window.h"
#include "desktop/sheets/review_host.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/sheets/update_window.h"
#include "desktop/status_line.h"
#include "desktop/tab_strip.h"
#include "desktop/tabs/reconcile_band.h"
#include "desktop/tabs/register_page.h"
#include "desktop/tabs/schedule_tab.h"
#include "desktop/tabs/summary_tab.h"
#include "desktop/texts.h"
#include "desktop/tool_bars.h"
#include "desktop/veil.h"
#include "desktop/window_keys.h"
#include "desktop/window_sheets.h"

namespace tallyfold::desktop {
namespace {

constexpr QSize kFirstSize(1200, 760);
constexpr QSize kLeastSize(860, 540);

// In the settings: whether the lines below the registers are hidden.
constexpr QLatin1String kDetails("details_Label");
constexpr char kHidden[] = "hidden";

}  // namespace

MainWindow::MainWindow(LDGRController& app, UserSettings& settings)
    : app_(app),
      settings_(settings),
      splitter_(new DrawerSplitter({app.accountsDrawer(), app.desk()}, this)),
      page_(new QWidget(splitter_)),
      pages_(new QStackedWidget(page_)) {
  setObjectName(QLatin1String(WindowHooks::kFrameName));
  setMinimumSize(kLeastSize);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(true);
  MakePieces();
  LayOut();
  Connect();
  veil_ = new Veil(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::MakePieces() {
  LDGRController& app = app_;
  actions_ = std::make_unique<CommandActions>(
      app, CommandActions::Parts{app.undo(), app.accountsDrawer(), app.tabs()}, *this);
  entry_actions_ = std::make_unique<EntryActions>(
      EntryActions::Parts{app.entryRemoval(), app.entryOrders(), app.transferLinking(), app.menus(),
                          app.desk()},
      *actions_, [this] { return ShownRegister().SelectedEntries(); });
  help_ = std::make_unique<HelpKey>();
  menus_ = std::make_unique<MenuBar>(
      *menuBar(), *actions_,
      MenuBar::Parts{app.menus(), *entry_actions_, app.search(), [this] { help_->Open(); },
                     [this](QMenu& menu) {
                       const auto* page = pages_->currentWidget();
                       auto* table = page->findChild<RegisterView*>();
                       if (table != nullptr) table->FillColumnsMenu(menu);
                     }});
  sheets_ = std::make_unique<SheetHost>(app.sheets(), *this);
  SetUpSheets(*sheets_, app, [this] { help_->Open(); });
  sheets_->SetActions({actions_->Named("SpeakFigures")});
  SetPrinters(std::make_unique<QtPrinters>());
  review_ = std::make_unique<ReviewHost>(
      ReviewSheet::Parts{app.sharedQIFImportController(), app.desk()}, *sheets_, *this);

  pieces_.actions = actions_.get();
  pieces_.menus = menus_.get();
  pieces_.sheets = sheets_.get();
  pieces_.review = review_.get();
  updates_ =
      std::make_unique<UpdateWindowHost>(UpdateWindow::Parts{app.updates(), app.desk()}, *this);
  pieces_.updates = updates_.get();
  pieces_.tools = new ToolBars(*actions_, app.tabs(), app.accountsDrawer(), this);
  pieces_.accounts = new AccountsList({app.accountsDrawer(), app.desk()}, splitter_);
  splitter_->SetPieces(*pieces_.accounts, *page_);
  pieces_.tabs = new TabStrip(app.tabs(), page_);
  pieces_.search =
      new SearchStrip({app.search(), app.textEditing(), app.tabs(), app.desk()}, page_);
  const RegisterPage::Parts rows{app.registers(), app.shownEntries(), app.entries(),
                                 app.selection(), app.desk()};
  pieces_.entries = new RegisterPage(RegisterKind::Entry, rows, pages_);
  pieces_.reconcile = new RegisterPage(RegisterKind::Reconcile, rows, pages_);
  pieces_.band = new ReconcileBand({app.reconcileTab(), app.desk()}, pieces_.reconcile);
  pieces_.reconcile->AddAbove(pieces_.band);
  pieces_.schedule = new ScheduleTab({app.schedules(), app.desk()}, pages_);
  pieces_.summary = new SummaryTab({app.summaries(), app.desk()}, pages_);
  pieces_.status =
      new StatusLine({app.balanceField(), app.shownEntries(), app.entryReveal(), app.recovery(),
                      app.entryOrders(), app.transferLinking(), app.schedules(), app.backups(),
                      app.accountsStore(), app.preferencesStore(), app.desk(), app.tabs()},
                     page_);
  pieces_.progress = new ProgressBar(page_);
  pieces_.date_jump = new DateJumpPanel(app.dateJump(), app.desk(), this);
  pieces_.find = new FindPanel(app.entryFind(), app.desk(), this);
}

void MainWindow::SetPrinters(std::unique_ptr<Printers> printers) {
  printers_ = std::move(printers);
  SetUpPrintSheet(*sheets_, app_, *printers_, settings_);
}

void MainWindow::LayOut() {
  for (QWidget* page : std::initializer_list<QWidget*>{pieces_.entries, pieces_.reconcile,
                                                       pieces_.schedule, pieces_.summary}) {
    pages_->addWidget(page);
  }
  auto* strip = new QWidget(page_);
  strip->setFixedHeight(kBarHeight);
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(pieces_.tabs, 0, Qt::AlignBottom);
  row->addWidget(pieces_.search, 1);
  auto* column = new QVBoxLayout(page_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(strip);
  column->addWidget(new RuleLine(page_));
  column->addWidget(pages_, 1);
  column->addWidget(new RuleLine(page_));
  column->addWidget(pieces_.status);

  auto* whole = new QWidget(this);
  auto* rows = new QVBoxLayout(whole);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(pieces_.tools);
  rows->addWidget(new RuleLine(whole));
  rows->addWidget(splitter_, 1);
  setCentralWidget(whole);
}

void MainWindow::Connect() {
  AddWindowKeys(*this, app_.tabs());
  actions_->RunInstead("Print_Open", [this] {
    app_.printSheet().Open(ShownRegister().SelectedEntries());
    return true;
  });
  connect(pieces_.search, &SearchStrip::Left, this, &MainWindow::FocusPage);
  const auto order = [this](const char* command) {
    return [action = actions_->Named(command)] { action->trigger(); };
  };
  for (RegisterPage* page : {pieces_.entries, pieces_.reconcile}) {
    connect(page, &RegisterPage::EntryWanted, this, order("Entry_Debit"));
    connect(page, &RegisterPage::ImportWanted, this, order("QIFImport"));
    connect(page, &RegisterPage::EditWanted, this, order("Entry_Edit"));
    connect(page, &RegisterPage::RemoveWanted, this, order("EntryRemoveConfirm_Begin"));
    connect(page, &RegisterPage::MarkAndMoveOnWanted, this,
            [this] { app_.reconcileTab().TurnClearedOverAndMoveOn(); });
    connect(page, &RegisterPage::RowMenuWanted, this,
            [this](const QPoint& place) { menus_->RowMenu()->popup(place); });
    connect(page, &RegisterPage::SelectionChanged, this, &MainWindow::ShowSelection);
    connect(page, &RegisterPage::AccountWanted, this, order("Account_Add"));
    connect(page, &RegisterPage::UnlockWanted, this, [this] {
      const AccountList& accounts = app_.desk().accounts();
      const auto locked = std::find_if(accounts.begin(), accounts.end(),
                                       [](const auto& account) { return account->IsLocked(); });
      if (locked != accounts.end()) app_.selection().Account_Select(*locked);
    });
    connect(menus_->DetailsItem(), &QAction::toggled, page, &RegisterPage::SetHasDetails);
    connect(page, &RegisterPage::Left, this, [this] { pieces_.search->FocusField(); });
    connect(page, &RegisterPage::ExampleWanted, this, [this] {
      if (open_example_) open_example_();
    });
  }
  // A key leaves the focus where it is, and what is being typed belongs to what is shown.
  actions_->RunBefore([this] { pieces_.band->EndEditing(); });
  connect(pieces_.band, &ReconcileBand::EntriesWanted, this, [this](const EntryList& entries) {
    pieces_.reconcile->SelectEntries(entries);
    FocusPage();
  });
  connect(pieces_.summary, &SummaryTab::EntriesShown, this, [this](const EntryList& entries) {
    ShownRegister().SelectEntries(entries);
    FocusPage();
  });
  connect(pieces_.schedule, &ScheduleTab::ScheduleWanted, this, order("Schedule_Debit"));
  connect(pieces_.schedule, &ScheduleTab::EditWanted, this, order("Schedule_Edit"));
  connect(pieces_.schedule, &ScheduleTab::RemoveWanted, this, order("ScheduleRemoveConfirm_Begin"));
  connect(pieces_.schedule, &ScheduleTab::RowMenuWanted, this,
          [this](const QPoint& place) { menus_->ScheduleMenu()->popup(place); });
}

void MainWindow::ShowTitle() {
  QString title = ToQString(app_.selection().WindowTitle());
  // Before the first account there is none to name.
  if (title.isEmpty()) title = Text("Tallyfold");
  if (!title_ending_.isEmpty()) title += QLatin1String(" ") + title_ending_;
  // Twice it is what it says, once it would be the mark of a changed document.
  setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void MainWindow::ShowLook() {
  pieces_.accounts->ShowLook();
  pieces_.entries->ShowLook();
  pieces_.reconcile->ShowLook();
  pieces_.schedule->ShowLook();
}

void MainWindow::ShowDrawer() {
  splitter_->Show();
}

void MainWindow::ShowPage() {
  pages_->setCurrentIndex(static_cast<int>(app_.tabs().State().selected));
  ShowSelection();
}

RegisterPage& MainWindow::ShownRegister() const {
  const bool is_reconcile = app_.tabs().State().selected == Tab::Reconcile;
  return is_reconcile ? *pieces_.reconcile : *pieces_.entries;
}

void MainWindow::ShowSelection() {
  pieces_.status->ShowSelection(
      SumOf(ShownRegister().SelectedEntries(), app_.desk().preferences()));
}

void MainWindow::FocusPage() {
  switch (app_.tabs().State().selected) {
    case Tab::Entry:
      return pieces_.entries->FocusTable();
    case Tab::Reconcile:
      return pieces_.reconcile->FocusTable();
    case Tab::Schedule:
      return pieces_.schedule->FocusTable();
    case Tab::Summary:
      return pieces_.summary->FocusList();
  }
}

void MainWindow::Place() {
  const QRect room = screen()->availableGeometry();
  resize(kFirstSize.boundedTo(room.size()));
  move(room.center() - QPoint(width() / 2, height() / 2));
  restoreGeometry(settings_.State(objectName()));
  pieces_.accounts->SetFrame(settings_.State(QLatin1String(WindowHooks::kAccountsTableFrameName)));
  pieces_.menus->DetailsItem()->setChecked(settings_.State(kDetails) != kHidden);
  for (QSplitter* splitter : {pieces_.schedule->Splitter(), pieces_.summary->Splitter()}) {
    splitter->restoreState(settings_.State(splitter->objectName()));
  }
}

void MainWindow::SaveFrames() {
  settings_.SetState(objectName(), saveGeometry());
  settings_.SetState(QLatin1String(WindowHooks::kAccountsTableFrameName),
                     pieces_.accounts->Frame());
  const bool has_details = pieces_.menus->DetailsItem()->isChecked();
  settings_.SetState(kDetails, has_details ? QByteArray() : QByteArray(kHidden));
  for (QSplitter* splitter : {pieces_.schedule->Splitter(), pieces_.summary->Splitter()}) {
    settings_.SetState(splitter->objectName(), splitter->saveState());
  }
}

void MainWindow::SetContentsEnabled(bool are_enabled) {
  centralWidget()->setEnabled(are_enabled);
}

void MainWindow::ShowWork(const QString& sentence) {
  pieces_.status->ShowWork(sentence);
  pieces_.status->repaint();
}

void MainWindow::ShowProgress(std::uint64_t done, std::uint64_t total) {
  pieces_.progress->ShowAt(kBarHeight, done, total);
}

void MainWindow::EndWork() {
  pieces_.progress->hide();
  pieces_.status->ShowWork({});
}

void MainWindow::ShowVeil() {
  const bool is_open = sheets_->IsOpen();
  if (is_open) veil_->raise();
  veil_->setVisible(is_open);
}

namespace {

// The file that is dragged; "" for none, and for several.
QString FileIn(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!FileIn(*event->mimeData()).isEmpty() && actions_->Named("QIFImport")->isEnabled()) {
    event->acceptProposedAction();
  }
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  // Whoever drags waits for the end of this.
  QTimer::singleShot(0, this, [this, file = FileIn(*event->mimeData())] {
    if (!file.isEmpty() && actions_->Named("QIFImport")->isEnabled()) {
      app_.importCommand().QIFImportFile(QFile::encodeName(file).toStdString());
    }
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The window goes with the program, after everything has been saved.
  event->ignore();
  if (sheets_->IsOpen()) return sheets_->Raise();
  if (review_->IsOpen()) return review_->Raise();
  app_.lifecycle().windowWillClose();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // What is not painted by the palette of the moment takes its colours when it is shown.
  if (event->type() == QEvent::PaletteChange) {
    QTimer::singleShot(0, this, [this] {
      pieces_.band->Show();
      pieces_.schedule->Show();
      pieces_.summary->Show();
      pieces_.status->ShowRows();
      pieces_.status->ShowNotice();
    });
  }
  // What was in the way may have gone without a word; by then it is gone from the stack as well.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    QTimer::singleShot(0, this, [this] { actions_->Show(); });
  }
}

}  // namespace tallyfold::desktop
