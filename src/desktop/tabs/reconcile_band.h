#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tallyfold {
class Desk;
class ReconcileTab;
}  // namespace tallyfold

namespace tallyfold::desktop {

class AmountField;

// The figures above the register of the Reconcile tab: the statement's balance, what is resolved
// and the difference, and below them what may explain it.
class ReconcileBand final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    ReconcileTab& tab;
    Desk& desk;
  };
  ReconcileBand(const Parts& parts, QWidget* parent);

  void Show();
  void FocusField();

 signals:
  // The entries of the explanation were selected.
  void EntriesSelected();

 private:
  void ShowExplanation();
  void EndEditing();
  void SelectEntries();

  Parts parts_;
  AmountField* field_;
  QLabel* resolved_;
  QLabel* resolved_note_;
  QLabel* tick_;
  QLabel* difference_;
  QLabel* difference_note_;
  QWidget* explanation_;
  QLabel* explanation_image_;
  QLabel* sentence_;
  QLabel* named_;
  QPushButton* select_;
};

}  // namespace tallyfold::desktop
