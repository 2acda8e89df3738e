#pragma once

#include <QWidget>
#include <vector>

#include "app/entries/transfer_sheet_state.h"

class QLabel;

namespace tallyfold {
class LDGRPreferences;
}

namespace tallyfold::desktop {

// What a transfer does, in a sentence, and what it does to the balances.
class BalanceCard final : public QWidget {
  Q_OBJECT

 public:
  explicit BalanceCard(QWidget* parent);

  void Show(const TransferSheetState& state, const LDGRPreferences& preferences);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Line {
    QString account;
    bool is_locked;
    QString now;
    QString after;
  };

  QLabel* sentence_;
  QWidget* lines_area_;
  std::vector<Line> lines_;
};

}  // namespace tallyfold::desktop
