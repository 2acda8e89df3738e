#pragma once

#include <QWidget>

namespace tallyfold::desktop {

// Darkens the window behind an open sheet.
class Veil final : public QWidget {
 public:
  // Over the whole of `window`, hidden at first.
  explicit Veil(QWidget* window);

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfold::desktop
