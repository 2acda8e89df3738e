#pragma once

#include <QTabBar>

namespace tallyfold {
class Tabs;
}

namespace tallyfold::desktop {

// The tabs of the window, with images. Where there is no room for all their texts only the current
// one keeps its own; the others are read out, and shown as tool tips.
class TabStrip final : public QTabBar {
 public:
  TabStrip(Tabs& tabs, QWidget* parent);

  void Show();
  // Until then the tabs have texts alone.
  void SetImages();

  // With all texts, and with no more than must be.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  // All texts; and reckons how wide the tabs are with them.
  void ShowTexts();
  // Those for which there is room.
  void FitTexts();

  Tabs& tabs_;
  int full_width_ = 0;
  int least_width_ = 0;
};

}  // namespace tallyfold::desktop
