#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollArea>
#include <QTableView>
#include <map>
#include <set>
#include <vector>

#include "desktop/look/colors.h"
#include "desktop/main_window.h"
#include "desktop/shots.h"

namespace tallyfold::desktop {
namespace {

// Whose rows are entries, which are read aloud.
const std::set<QString> kSpokenTables = {
    QStringLiteral("entry_Table"),  QStringLiteral("reconcile_Table"),
    QStringLiteral("find_Table"),   QStringLiteral("schedule_Table"),
    QStringLiteral("import_Table"), QStringLiteral("scheduleReminderSheet_Table")};

using Findings = std::map<QString, QString>;  // what is wrong, and where it was seen first

QString PathOf(const QObject* object) {
  QString path;
  for (int i = 0; object != nullptr && i < 3; ++i, object = object->parent()) {
    path += QLatin1String(object->metaObject()->className()) + QLatin1Char('#') +
            object->objectName() + QLatin1Char(' ');
  }
  return path;
}

bool IsSensible(QAccessible::Role role) {
  return role != QAccessible::NoRole && role != QAccessible::Client && role != QAccessible::Window;
}

// Every cell says its title and what it shows, and what is heard of its row.
void LookAtTable(QAccessibleInterface& node, QStringList& wrong) {
  const auto* view = qobject_cast<QTableView*>(node.object());
  // A day of the toolkit's calendar says its number.
  if (view == nullptr || view->objectName().startsWith(QLatin1String("qt_"))) return;
  const auto* model = view->model();
  for (int row = 0; row < std::min(3, model->rowCount()); ++row) {
    for (int column = 0; column < model->columnCount(); ++column) {
      if (view->isColumnHidden(column)) continue;
      QAccessibleInterface* cell = node.tableInterface()->cellAt(row, column);
      const QString title = model->headerData(column, Qt::Horizontal).toString();
      const QString value = model->index(row, column).data().toString();
      const QString name = cell->text(QAccessible::Name);
      if (name.isEmpty() && title.isEmpty() && value.isEmpty()) continue;
      const bool is_spoken = !kSpokenTables.contains(view->objectName()) ||
                             !cell->text(QAccessible::Description).isEmpty();
      if (name.isEmpty() || !is_spoken || !name.contains(title) ||
          (value != "\u2713"_q && !name.contains(value)))
        wrong += QStringLiteral("cell \"%1\" of column %2 (%3), value \"%4\"")
                     .arg(name, QString::number(column), title, value);
    }
  }
}

void Walk(QAccessibleInterface* node, int depth, QStringList& wrong) {
  if (node == nullptr || depth > 40 || node->state().invisible) return;
  const QAccessible::State state = node->state();
  QStringList here;
  if (state.focusable && !state.disabled) {
    if (node->text(QAccessible::Name).trimmed().isEmpty()) here += QStringLiteral("no name");
    if (!IsSensible(node->role())) here += QStringLiteral("role %1").arg(node->role());
  }
  if (node->tableInterface() != nullptr) LookAtTable(*node, here);
  const QObject* object = node->object() != nullptr ? node->object() : node->parent()->object();
  if (!here.isEmpty()) wrong += PathOf(object) + here.join(QLatin1String("; "));
  if (node->tableInterface() != nullptr) return;
  for (int i = 0; i < node->childCount(); ++i) Walk(node->child(i), depth + 1, wrong);
}

// A field that is called as a label beside it reads is that label's buddy.
void LookAtLabels(const QWidget& window, QStringList& wrong) {
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->text().isEmpty() || label->buddy() != nullptr) continue;
    for (const auto* field : label->parentWidget()->findChildren<QWidget*>()) {
      const bool is_field = qobject_cast<const QLineEdit*>(field) != nullptr ||
                            qobject_cast<const QComboBox*>(field) != nullptr ||
                            qobject_cast<const QPlainTextEdit*>(field) != nullptr ||
                            qobject_cast<const QTableView*>(field) != nullptr;
      if (is_field && field->isVisible() && field->accessibleName() == label->text())
        wrong += PathOf(label) + QLatin1String("no buddy: ") + label->text();
    }
  }
}

bool IsInScrollArea(const QWidget* widget) {
  for (; widget != nullptr && !widget->isWindow(); widget = widget->parentWidget()) {
    if (qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) return true;
  }
  return false;
}

// A text is shown whole, and so is what it stands in.
void LookAtRoom(const QWidget& window, QStringList& wrong) {
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window) continue;
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    if (label == nullptr && button == nullptr && combo == nullptr) continue;
    if (label != nullptr && label->text().isEmpty()) continue;
    if (button != nullptr && button->text().isEmpty()) continue;
    const QSize room = widget->size();
    const QSize needed = label == nullptr
                             ? QSize(widget->sizeHint().width(), widget->fontMetrics().height())
                         : label->wordWrap() ? QSize(0, label->heightForWidth(room.width()))
                                             : label->sizeHint();
    const QString text = label != nullptr    ? label->text()
                         : button != nullptr ? button->text()
                                             : combo->currentText();
    const bool is_cut = needed.width() > room.width() || needed.height() > room.height();
    if (is_cut && !widget->toolTip().contains(text)) {
      wrong += PathOf(widget) +
               QStringLiteral("%1x%2 needs %3x%4: ")
                   .arg(room.width())
                   .arg(room.height())
                   .arg(needed.width())
                   .arg(needed.height()) +
               text;
    }
    if (IsInScrollArea(widget)) continue;
    for (const QWidget* parent = widget->parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
      const QRect place(widget->mapTo(parent, QPoint()), room);
      if (!parent->rect().contains(place)) {
        wrong += PathOf(widget) + QLatin1String("lies outside ") + PathOf(parent);
        break;
      }
      if (parent->isWindow()) break;
    }
  }
}

// False where there is nothing to see: what many rows look like is no other state.
bool Reach(TestWindow& test, const QString& name, const std::function<void(TestWindow&)>& prepare) {
  if (name.endsWith(QLatin1String("hundred-thousand"))) return false;
  static_cast<void>(test.Launch());
  test.program->window().resize(1280, 832);
  prepare(test);
  TestWindow::Settle();
  return true;
}

TEST(EveryState, IsNamedForAssistiveTechnologyAndShowsLongerTextsWhole) {
  Findings findings;
  const auto look_at = [&findings](const QString& state, QWidget& window) {
    QStringList wrong;
    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&window);
    if (root->text(QAccessible::Name).isEmpty()) wrong += QStringLiteral("window without a name");
    Walk(root, 0, wrong);
    LookAtLabels(window, wrong);
    // The toolkit's own dialogs have their own texts.
    if (qobject_cast<QColorDialog*>(&window) == nullptr) LookAtRoom(window, wrong);
    for (const QString& each : wrong) findings.emplace(each, state);
  };
  ForEachShot(
      [&look_at](const QString& name, const std::string& accounts,
                 const std::function<void(TestWindow&)>& prepare) {
        TestWindow test(accounts, true);
        if (!Reach(test, name, prepare)) return;
        look_at(name, test.program->window());
        for (QWidget* window : QApplication::topLevelWidgets()) {
          if (window->isVisible() && window != &test.program->window()) look_at(name, *window);
        }
      },
      look_at);
  for (const auto& [what, state] : findings)
    ADD_FAILURE() << state.toStdString() << ": " << what.toStdString();
}

// How well the difference between two pictures of one place can be seen.
double ContrastOfChange(const QImage& before, const QImage& after) {
  double most = 1.0;
  for (int y = 0; y < before.height(); ++y) {
    for (int x = 0; x < before.width(); ++x) {
      if (before.pixel(x, y) != after.pixel(x, y)) {
        most = std::max(most, ContrastBetween(before.pixelColor(x, y), after.pixelColor(x, y)));
      }
    }
  }
  return most;
}

QImage PictureAround(QWidget& widget) {
  constexpr int kAround = 4;
  for (QWidget* above = widget.parentWidget(); above != nullptr; above = above->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(above)) area->ensureWidgetVisible(&widget);
  }
  QWidget* window = widget.window();
  const QRect place(widget.mapTo(window, QPoint()), widget.size());
  return window->grab(place.adjusted(-kAround, -kAround, kAround, kAround)).toImage();
}

TEST(EveryState, ShowsWhatHasTheFocus) {
  constexpr double kVisible = 3.0;
  const QPalette before = QApplication::palette();
  std::set<QString> seen;
  const auto look_at = [&](const QString& state, QWidget& window) {
    std::vector<QPointer<QWidget>> unseen;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      const bool takes_it = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() &&
                            widget->isEnabled() && widget->window() == &window;
      if (takes_it && seen.insert(PathOf(widget)).second) unseen.emplace_back(widget);
    }
    for (const Colors& colors : {LightColors(), DarkColors()}) {
      if (!unseen.empty()) QApplication::setPalette(PaletteOf(colors));
      for (const QPointer<QWidget>& widget : unseen) {
        // The editor of a cell goes with its focus.
        if (widget == nullptr || !widget->isVisible()) continue;
        widget->setFocus(Qt::TabFocusReason);
        const QImage with = PictureAround(*widget);
        widget->clearFocus();
        EXPECT_GE(ContrastOfChange(PictureAround(*widget), with), kVisible)
            << state.toStdString() << ": " << PathOf(widget).toStdString()
            << (colors.IsDark() ? "dark" : "");
      }
    }
  };
  ForEachShot(
      [&](const QString& name, const std::string& accounts,
          const std::function<void(TestWindow&)>& prepare) {
        TestWindow test(accounts);
        if (!Reach(test, name, prepare)) return;
        QWidget* window = QApplication::activeWindow();
        if (window != nullptr && qobject_cast<QColorDialog*>(window) == nullptr) {
          look_at(name, *window);
        }
      },
      [](const QString&, QWidget&) {});
  QApplication::setPalette(before);
}

TEST(Figures, AreNamedWithTheirCaptionsAndReadAloudByAKey) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  const auto expect = [&test](const char* figure, const char* name, const char* spoken) {
    test.Wait(std::chrono::milliseconds(1));
    EXPECT_EQ(test.FindWidget(figure)->accessibleName().toStdString(), name);
    test.Key(Qt::Key_B, Qt::ControlModifier);
    test.Wait(std::chrono::seconds(1));
    EXPECT_EQ(test.speech.Heard().back(), spoken);
  };
  test.ClickRow("entry_Table", 0);
  test.Key(Qt::Key_Delete);
  test.Click("entryRemoveConfirm_OK_Button");
  expect("accountBalance_Field", "Balance: $3,615.58", "Balance:  $3,615.58 .  ");
  test.Key(Qt::Key_2, Qt::AltModifier);
  test.FindWidget("reconcile_Table")->setFocus();
  test.Key(Qt::Key_Space);
  expect("difference_Field", "Difference: -$1,298.13",
         "Statement balance:  $0.00 .  Resolved:  $1,298.13 .  Difference:  -$1,298.13 .  ");
  // In front of a sheet the key is the sheet's.
  test.Key(Qt::Key_D, Qt::ControlModifier);
  test.Click("debitSheet_Split_Button");
  for (const char* text : {"Lunch", "Inn", "18.60"}) {
    test.Type(text);
    test.Key(Qt::Key_Tab);
  }
  expect("debitSheet_Split_Total_Field", "Total: $18.60", "Total:  $18.60 .  ");
}

}  // namespace
}  // namespace tallyfold::desktop
