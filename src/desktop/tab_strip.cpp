#include "desktop/tab_strip.h"

#include <QSignalBlocker>

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
  for (const Image& image : kImages) addTab(WithoutMnemonics(Text(image.title)));
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    tabs_.Select(static_cast<Tab>(index));
    Show();
  });
}

void TabStrip::SetImages() {
  for (int i = 0; i < count(); ++i) {
    setTabIcon(i, IconNamed(QLatin1String(kImages[i].icon), Role::Dim));
  }
}

void TabStrip::Show() {
  const QSignalBlocker blocker(this);
  setCurrentIndex(static_cast<int>(tabs_.State().selected));
}

}  // namespace tallyfold::desktop
