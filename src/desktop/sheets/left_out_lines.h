#pragma once

#include <QWidget>

class QLabel;

namespace tallyfold {
struct StatementOptionsState;
}

namespace tallyfold::desktop {

class LookTable;

// The lines of a table that become no entries: how many, and each with the reason.
class LeftOutLines final : public QWidget {
 public:
  explicit LeftOutLines(QWidget* parent);

  // Hidden for a file that has none.
  void Show(const StatementOptionsState& state);

 private:
  QLabel* counts_;
  LookTable* lines_;
};

}  // namespace tallyfold::desktop
