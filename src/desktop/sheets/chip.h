#pragma once

#include <QAbstractButton>
#include <QLatin1String>

namespace tallyfold::desktop {

// A count of rows that selects them: an icon, a text, and the look of a warning or of a button.
class Chip final : public QAbstractButton {
  Q_OBJECT

 public:
  Chip(QLatin1String icon, bool is_warning, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* event) override;

  QLatin1String icon_;
  bool is_warning_;
};

}  // namespace tallyfold::desktop
