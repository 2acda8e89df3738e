#pragma once

#include <QWidget>
#include <memory>

#include "model/account_entry.h"

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tallyfold {
class Desk;
class LDGRAccount;
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
  // Takes over what is being typed, where it is an amount.
  void EndEditing();
  // As narrow as it is with the difference in a line of its own.
  [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
  // The user wants to see the entries that the explanation names.
  void EntriesWanted(const EntryList& entries);

 private:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void ShowState();
  void ShowExplanation();
  void SelectEntries();
  // What the figures need at least, with their captions; the first with the margins and the sign
  // behind it.
  struct Widths {
    int statement;
    int resolved;
    int difference;
    int equals;
  };
  [[nodiscard]] Widths WidthsOfFigures() const;
  // Takes away and moves below what there is no room for.
  void Fit();
  void PlaceDifference();

  Parts parts_;
  QWidget* figures_;
  QGridLayout* grid_;
  QLabel* minus_;
  QLabel* equals_;
  QLabel* statement_caption_;
  QLabel* resolved_caption_;
  QLabel* difference_caption_;
  AmountField* field_;
  FigureLabel* bank_note_;
  FigureLabel* resolved_;
  FigureLabel* resolved_note_;
  QLabel* tick_;
  // Of the tick and the figure.
  QHBoxLayout* difference_row_;
  FigureLabel* difference_;
  FigureLabel* difference_note_;
  QWidget* explanation_;
  QLabel* explanation_image_;
  QLabel* sentence_;
  QLabel* named_;
  QPushButton* select_;
  // Whose balance the field shows.
  std::weak_ptr<const LDGRAccount> account_;
  bool is_behind_ = true;
  bool is_stacked_ = false;
};

}  // namespace tallyfold::desktop
