#pragma once

#include <QWidget>

#include "model/account_entry.h"

class QLabel;
class QPushButton;

namespace tallyfold {
class Desk;
class ReconcileTab;
}  // namespace tallyfold

namespace tallyfold::desktop {

class AmountField;
class FigureLabel;

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

  // While it is hidden it only remembers that it has to: what may explain a difference takes a look
  // at every entry.
  void Show();
  void FocusField();

 signals:
  // The user wants to see the entries that the explanation names.
  void EntriesWanted(const EntryList& entries);

 private:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void ShowState();
  void ShowExplanation();
  void EndEditing();
  void SelectEntries();

  Parts parts_;
  AmountField* field_;
  FigureLabel* bank_note_;
  FigureLabel* resolved_;
  FigureLabel* resolved_note_;
  QLabel* tick_;
  FigureLabel* difference_;
  FigureLabel* difference_note_;
  QWidget* explanation_;
  QLabel* explanation_image_;
  QLabel* sentence_;
  QLabel* named_;
  QPushButton* select_;
  bool is_behind_ = true;
};

}  // namespace tallyfold::desktop
