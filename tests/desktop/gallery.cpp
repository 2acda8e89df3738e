// Pictures of the window's controls and tables in their states, to be looked at beside each other:
// gallery FOLDER [dark]. Another scale by QT_SCALE_FACTOR.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyleOption>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>
#include <memory>

#include "desktop/fields/amount_field.h"
#include "desktop/fields/calendar_pop_up.h"
#include "desktop/fields/completion_list.h"
#include "desktop/fields/date_field.h"
#include "desktop/fields/key_button.h"
#include "desktop/fields/search_field.h"
#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/palette_watch.h"
#include "desktop/look/style.h"
#include "desktop/shown_register.h"
#include "desktop/wished_colors.h"

namespace tallyfold::desktop {
namespace {

// A control drawn in a state that it would need a pointer or a window for.
class Posed final : public QWidget {
 public:
  Posed(QStyle::ControlElement element, QStyleOptionButton option)
      : element_(element), option_(option) {
    option_.palette = QApplication::palette();
    option_.fontMetrics = fontMetrics();
    option_.iconSize = QSize(kIconSize, kIconSize);
    setFixedSize(style()->sizeFromContents(
        element == QStyle::CE_PushButton ? QStyle::CT_PushButton : QStyle::CT_CheckBox, &option_,
        QSize(fontMetrics().horizontalAdvance(option.text), fontMetrics().height()), this));
    option_.rect = rect();
  }

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    style()->drawControl(element_, &option_, &painter, this);
  }
  QStyle::ControlElement element_;
  QStyleOptionButton option_;
};

QStyleOptionButton ButtonIn(const char* text, QStyle::State state, bool is_default = false) {
  QStyleOptionButton option;
  option.text = QLatin1String(text);
  option.state = state;
  if (is_default) option.features = QStyleOptionButton::DefaultButton;
  return option;
}

QHBoxLayout* Row(QVBoxLayout* page, const char* title) {
  auto* row = new QHBoxLayout;
  auto* label = new QLabel(QLatin1String(title));
  label->setFixedWidth(112);
  row->addWidget(label);
  page->addLayout(row);
  return row;
}

QWidget* Controls() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  const auto rest = QStyle::State_Enabled | QStyle::State_Active;
  for (const bool is_default : {false, true}) {
    auto* row = Row(all, is_default ? "Default button" : "Button");
    const char* text = is_default ? "Commit" : "Select It";
    for (const QStyle::State state :
         {rest, rest | QStyle::State_MouseOver, rest | QStyle::State_Sunken,
          rest | QStyle::State_HasFocus, QStyle::State(QStyle::State_None)}) {
      row->addWidget(new Posed(QStyle::CE_PushButton, ButtonIn(text, state, is_default)));
    }
    row->addStretch();
  }
  auto* checks = Row(all, "Check box");
  for (const QStyle::State state :
       {rest | QStyle::State_Off, rest | QStyle::State_On, rest | QStyle::State_NoChange,
        rest | QStyle::State_On | QStyle::State_HasFocus, QStyle::State(QStyle::State_On),
        QStyle::State(QStyle::State_Off)}) {
    checks->addWidget(new Posed(QStyle::CE_CheckBox, ButtonIn("a mark", state)));
  }
  auto* radio = new QRadioButton(QStringLiteral("chosen"));
  radio->setChecked(true);
  checks->addWidget(radio);
  checks->addWidget(new QRadioButton(QStringLiteral("not chosen")));
  checks->addStretch();

  auto* fields = Row(all, "Field");
  auto* filled = new QLineEdit(QStringLiteral("Saturday"));
  auto* refused = new QLineEdit(QStringLiteral("12b5"));
  refused->setAlignment(Qt::AlignRight);
  SetProblem(refused, true);
  auto* off = new QLineEdit(QStringLiteral("Split"));
  off->setEnabled(false);
  auto* empty = new QLineEdit;
  empty->setPlaceholderText(QStringLiteral("Description"));
  for (QLineEdit* field : {filled, refused, off, empty}) {
    field->setFixedWidth(110);
    fields->addWidget(field);
  }
  fields->addWidget(new QSpinBox);
  fields->addStretch();

  auto* pop_ups = Row(all, "Pop-up");
  for (int i = 0; i < 4; ++i) {
    auto* pop_up = new QComboBox;
    pop_up->addItems({QStringLiteral("Check"), QStringLiteral("Online Payment")});
    pop_up->setEnabled(i != 1);
    pop_up->setFrame(i != 2);
    pop_up->setEditable(i == 3);
    pop_ups->addWidget(pop_up);
  }
  pop_ups->addStretch();

  auto* bar = new QToolBar;
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  auto* drawer = bar->addAction(IconNamed(QLatin1String("accounts")), QString());
  drawer->setCheckable(true);
  drawer->setChecked(true);
  bar->addSeparator();
  for (const char* name : {"debit", "deposit", "transfer"}) {
    bar->addAction(IconNamed(QLatin1String(name)), QLatin1String(name));
  }
  bar->addSeparator();
  bar->addAction(IconNamed(QLatin1String("remove")), QStringLiteral("Remove"))->setEnabled(false);
  auto* more = new QToolButton;
  more->setText(QStringLiteral("New"));
  more->setIcon(IconNamed(QLatin1String("add")));
  more->setMenu(new QMenu(more));
  more->setPopupMode(QToolButton::InstantPopup);
  bar->addWidget(more);
  all->addWidget(bar);

  auto* tabs = new QTabBar;
  for (const char* name : {"entries", "reconcile", "schedule", "summary"}) {
    tabs->addTab(IconNamed(QLatin1String(name)), QLatin1String(name));
  }
  all->addWidget(tabs);
  return page;
}

QWidget* RowMenu() {
  auto* menu = new QMenu;
  menu->addAction(IconNamed(QLatin1String("edit")), QStringLiteral("Edit..."))
      ->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
  menu->addAction(IconNamed(QLatin1String("remove")), QStringLiteral("Remove"))
      ->setShortcut(Qt::Key_Delete);
  auto* resolved = menu->addAction(QStringLiteral("Resolved"));
  resolved->setCheckable(true);
  resolved->setChecked(true);
  menu->addMenu(QStringLiteral("Type"));
  menu->addAction(IconNamed(QLatin1String("transfer")), QStringLiteral("Show Other Half"))
      ->setEnabled(false);
  menu->addSeparator();
  menu->addAction(IconNamed(QLatin1String("copy")), QStringLiteral("Copy"));
  menu->setActiveAction(menu->actions().constFirst());
  return menu;
}

QWidget* Fields() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  auto* search = new SearchField;
  search->SetFilterName(QStringLiteral("General"));
  search->SetFilterMenu(new QMenu);
  search->Field().setPlaceholderText(QStringLiteral("Search entries"));
  all->addWidget(search);
  auto* searched = new SearchField;
  searched->SetFilterName(QStringLiteral("Description"));
  searched->SetFilterMenu(new QMenu);
  searched->Field().setText(QStringLiteral("market"));
  all->addWidget(searched);
  auto* off = new SearchField;
  off->SetFilterName(QStringLiteral("This Month"));
  off->SetFilterMenu(new QMenu);
  off->SetTakesText(false);
  all->addWidget(off);
  auto* row = new QHBoxLayout;
  auto* date = new DateField;
  date->setFixedWidth(132);
  date->SetDay(20260305);
  row->addWidget(date);
  auto* amount = new AmountField;
  amount->setFixedWidth(120);
  amount->setText(QStringLiteral("12.50+3"));
  amount->AddUp();
  row->addWidget(amount);
  auto* key = new LDGRButton(QStringLiteral("OK, then new"));
  key->setIcon(IconNamed(QLatin1String("repeat")));
  row->addWidget(key);
  row->addStretch();
  all->addLayout(row);
  searched->Field().setFocus();
  return page;
}

}  // namespace

void Grab(const std::function<QWidget*()>& make, const QString& path, const QSize& size = {}) {
  std::unique_ptr<QWidget> widget(make());
  widget->ensurePolished();
  if (size.isValid()) {
    widget->resize(size);
  } else {
    widget->adjustSize();
  }
  widget->show();
  widget->activateWindow();
  static_cast<void>(QTest::qWaitForWindowActive(widget.get()));
  widget->grab().save(path);
}

}  // namespace tallyfold::desktop

int main(int argc, char** argv) {
  using namespace tallyfold::desktop;
  QApplication application(argc, argv);
  QApplication::setFont(QFont(QStringLiteral("Inter"), 10));
  InstallStyle(application);
  const bool is_dark = argc > 2;
  PaletteWatch watch(std::make_unique<WishedColors>(is_dark));
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
  const QString ending = QLatin1String(is_dark ? "-dark.png" : "-light.png");
  const auto path = [&](const char* name) {
    return folder + QLatin1Char('/') + QLatin1String(name) + ending;
  };
  Grab(Controls, path("controls"));
  Grab(RowMenu, path("menu"));
  Grab(Fields, path("fields"), {420, 190});
  QWidget field;
  field.resize(280, 30);
  Grab([&] { return new CalendarPopUp(QDate(2026, 3, 5), QDate(2026, 3, 2), &field); },
       path("calendar"));
  Grab(
      [&] {
        auto* list = new CompletionList(&field);
        list->SetNotes([](const std::string&) { return QStringLiteral("03/09/26"); });
        list->Show({"Cafe by the Quay", "Caf\u00e9 Zo\u00eb", "Cash", "Local Bakery"},
                   QStringLiteral("Ca"), 0);
        return list;
      },
      path("completions"), {280, 122});
  const QSize page(1047, 675);
  Grab([] { return MakeRegister({.selected = {19}}); }, path("register"), page);
  Grab([] { return MakeRegister({.entries = 100'000, .selected = {49'990}}); },
       path("register-100000"), page);
  Grab(
      [] {
        return MakeRegister({.selected = {3, 4, 7, 12}, .is_reconcile = true});
      },
      path("register-several"), page);
  Grab([] { return MakeRegister({.selected = {5}, .is_right_to_left = true}); },
       path("register-right-to-left"), page);
  Grab([] { return MakeRegister({.selected = {5}}); }, path("register-narrow"), {560, 300});
  return 0;
}
