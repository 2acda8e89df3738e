#pragma once

#include <QTabBar>

namespace tallyfold {
class Tabs;
}

namespace tallyfold::desktop {

// The four tabs of the window.
class TabStrip final : public QTabBar {
 public:
  // `tabs` must outlive this.
  TabStrip(Tabs& tabs, QWidget* parent);

  void SetImages();
  void Show();

 private:
  Tabs& tabs_;
};

}  // namespace tallyfold::desktop
