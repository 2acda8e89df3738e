#include "desktop/test_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTest>
#include <QWindow>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "app/services.h"
#include "desktop/main_window.h"
#include "desktop/print/printers.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

class NoPrinters final : public Printers {
 public:
  [[nodiscard]] bool HasAny() override { return false; }
  void Choose(const PrintJob&, QWidget*, std::function<void(QPrinter&)>) override {}
};

}  // namespace

TestWindow::TestWindow(const std::string& accounts, bool has_longer_texts) {
  ambient.localizer.lengthens = has_longer_texts;
  ambient.clock.SetLocal({2026, 2, 22, 12, 0, 0});
  if (!accounts.empty()) files.AddFile(kAccountsFile, accounts);
  program = std::make_unique<Program>(Services{files, alerts, panels, processes, speech,
                                               field_speech, loop, notifications, host, encodings},
                                      Program::Settings{.settings_path = settings / "window"});
  program->window().SetPrinters(std::make_unique<NoPrinters>());
}

TestWindow::~TestWindow() {
  program.reset();
  Settle();
}

bool TestWindow::Launch() {
  const bool is_up = program->Launch();
  static_cast<void>(QTest::qWaitForWindowActive(&program->window()));
  loop.FinishEvent();
  Settle();
  return is_up;
}

void TestWindow::Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

void TestWindow::Wait(std::chrono::milliseconds time) {
  loop.AdvanceBy(time);
  Settle();
}

QWidget* TestWindow::FindWidget(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    if (window->objectName() == QLatin1String(name)) return window;
    const auto found = window->findChildren<QWidget*>(QLatin1String(name));
    for (QWidget* widget : found) {
      if (widget->isVisible() || found.size() == 1) return widget;
    }
  }
  throw std::logic_error(std::string("no widget is called ") + name);
}

QString TestWindow::TextOf(const char* label) {
  return Find<QLabel>(label)->text();
}

QString TestWindow::Row(const char* table, int row) {
  const auto* view = Find<QTableView>(table);
  QStringList texts;
  for (int i = 0; i < view->model()->columnCount(); ++i) {
    const int column = view->horizontalHeader()->logicalIndex(i);
    if (view->isColumnHidden(column)) continue;
    texts.append(view->model()->index(row, column).data().toString());
  }
  return texts.join(QLatin1Char('|'));
}

int TestWindow::Rows(const char* table) {
  return Find<QAbstractItemView>(table)->model()->rowCount();
}

QWidget* TestWindow::Focus() {
  return QApplication::focusWidget();
}

QString TestWindow::FocusName() {
  return Focus() != nullptr ? Focus()->objectName() : QLatin1String("(none)");
}

void TestWindow::Key(Qt::Key key, Qt::KeyboardModifiers held) {
  // A pop-up has the keyboard while it is open. The key that closes a window is let go over
  // another.
  const QWidget* pop_up = QApplication::activePopupWidget();
  const QPointer<QWindow> window =
      (pop_up != nullptr ? pop_up : QApplication::activeWindow())->windowHandle();
  QTest::keyPress(window, key, held);
  if (window) QTest::keyRelease(window, key, held);
  Settle();
}

void TestWindow::Type(const char* text) {
  for (const char* letter = text; *letter != '\0'; ++letter) {
    QTest::keyClick(QApplication::activeWindow()->windowHandle(), *letter);
  }
  Settle();
}

void TestWindow::Fill(const char* field, const char* text) {
  auto* line = Find<QLineEdit>(field);
  line->setFocus();
  line->selectAll();
  Type(text);
}

void TestWindow::Click(QWidget* widget) {
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                    widget->mapTo(window, widget->rect().center()));
  Settle();
}

void TestWindow::ClickRow(const char* table, int row, bool is_double) {
  auto* view = Find<QTableView>(table);
  QWidget* window = view->window();
  view->scrollTo(view->model()->index(row, 0));
  const QPoint place =
      view->viewport()->mapTo(window, view->visualRect(view->model()->index(row, 0)).center());
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
  if (is_double) QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, place);
  Settle();
}

void TestWindow::ClickHeader(const char* table, int column) {
  auto* header = Find<QTableView>(table)->horizontalHeader();
  const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
  QWidget* window = header->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                    header->viewport()->mapTo(window, QPoint(x, header->height() / 2)));
  Settle();
}

std::string ExampleAccounts() {
  std::ifstream file(TALLYFOLD_EXAMPLES "/Accounts.plist", std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

}  // namespace tallyfold::desktop
