#pragma once

#include <QWidget>

namespace tallyfold::desktop {

// A rule between areas, or upright between what stands side by side.
class RuleLine final : public QWidget {
 public:
  explicit RuleLine(QWidget* parent, Qt::Orientation orientation = Qt::Horizontal);

 private:
  void paintEvent(QPaintEvent* event) override;

  Qt::Orientation orientation_;
};

}  // namespace tallyfold::desktop
