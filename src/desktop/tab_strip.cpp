#include "desktop/tab_strip.h"

#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <iterator>

#include "app/shell/tabs.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

struct Image {
  std::string_view title;
  const char* icon;
};
// By tab.
constexpr Image kImages[] = {
    {"Entries", "entries"},
    {"Reconcile", "reconcile"},
    {"Schedule", "schedule"},
    {"Summary", "summary"},
};

}  // namespace

TabStrip::TabStrip(Tabs& tabs, QWidget* parent) : QTabBar(parent), tabs_(tabs) {
  setObjectName(QLatin1String("main_TabView"));
  setAccessibleName(Text("Tabs"));
  setExpanding(false);
  setDrawBase(false);
  setDocumentMode(true);
  setUsesScrollButtons(false);
  setElideMode(Qt::ElideNone);
  setIconSize(QSize(kTabIconSize, kTabIconSize));
  for (int i = 0; i < static_cast<int>(std::size(kImages)); ++i) {
    addTab(QString());
    setAccessibleTabName(i, Text(kImages[i].title));
  }
  ShowTexts();
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    tabs_.Select(static_cast<Tab>(index));
    Show();
  });
}

void TabStrip::SetImages() {
  for (int i = 0; i < count(); ++i) {
    setTabIcon(i, IconNamed(QLatin1String(kImages[i].icon), Role::Dim));
  }
  ShowTexts();
}

void TabStrip::Show() {
  const QSignalBlocker blocker(this);
  setCurrentIndex(static_cast<int>(tabs_.State().selected));
  FitTexts();
}

void TabStrip::ShowTexts() {
  full_width_ = 0;
  int bare = 0;
  int widest_text = 0;
  for (int i = 0; i < count(); ++i) {
    setTabText(i, QString());
    const int without = tabSizeHint(i).width();
    setTabText(i, WithoutMnemonics(Text(kImages[i].title)));
    const int with = tabSizeHint(i).width();
    full_width_ += with;
    bare += without;
    widest_text = std::max(widest_text, with - without);
  }
  least_width_ = bare + widest_text;
  updateGeometry();
  FitTexts();
}

void TabStrip::FitTexts() {
  const bool has_room = width() >= full_width_;
  for (int i = 0; i < count(); ++i) {
    const QString title = Text(kImages[i].title);
    const bool is_shown = has_room || i == currentIndex();
    const QString text = is_shown ? WithoutMnemonics(title) : QString();
    if (tabText(i) != text) setTabText(i, text);
    setTabToolTip(i, is_shown ? QString() : title);
  }
}

QSize TabStrip::sizeHint() const {
  return {full_width_, QTabBar::sizeHint().height()};
}

QSize TabStrip::minimumSizeHint() const {
  return {least_width_, QTabBar::minimumSizeHint().height()};
}

void TabStrip::resizeEvent(QResizeEvent* event) {
  QTabBar::resizeEvent(event);
  FitTexts();
}

void TabStrip::changeEvent(QEvent* event) {
  QTabBar::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) ShowTexts();
}

}  // namespace tallyfold::desktop
