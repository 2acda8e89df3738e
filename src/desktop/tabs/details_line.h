#pragma once

#include <QLabel>

namespace tallyfold {
class Desk;
}

namespace tallyfold::desktop {

// One line below a register: the notes and the split of the current row.
class DetailsLine final : public QLabel {
 public:
  // `desk` must outlive this.
  DetailsLine(const Desk& desk, QWidget* parent);

  void Show();

 private:
  const Desk& desk_;
};

}  // namespace tallyfold::desktop
