#pragma once

#include <QWidget>

namespace tallyfold::desktop {

// A horizontal rule between areas.
class RuleLine final : public QWidget {
 public:
  explicit RuleLine(QWidget* parent);

 private:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfold::desktop
