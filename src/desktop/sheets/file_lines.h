#pragma once

#include <QFrame>
#include <vector>

#include "app/exchange/statement_import_state.h"
#include "exchange/csv_lines.h"

class QComboBox;
class QScrollArea;

namespace tallyfold::desktop {

struct CellLook;
class LookTable;

// The lines of a bank's table as the file has them, under a pop-up for each column that says what
// the column holds. What becomes no entry is dim, with the reason at its end.
class FileLines final : public QFrame {
  Q_OBJECT

 public:
  explicit FileLines(QWidget* parent);

  // Which lines there are, and how far their balances agree; to be followed by Show().
  void SetLines(CsvLines lines, const StatementProof& proof);
  // Hidden for a file that has no columns.
  void Show(const StatementOptionsState& state);
  // From the line that is chosen to the next whose balance does not agree, or that is no entry;
  // around the end.
  void GoToNextDisagreeing();
  void GoToNextLeftOut();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void FieldChosen(int column, int field);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Column {
    QComboBox* pop_up;
    CsvField field;
  };

  void MakeColumns(const StatementOptionsState& state);
  void ShowColumns();
  void ScrollToEntries();
  void ShowFields(const StatementOptionsState& state);
  void PlacePopUps();
  template <typename Wanted>
  void GoToNext(Wanted is_wanted);
  [[nodiscard]] std::vector<CellLook> RowAt(int row) const;

  QScrollArea* strip_;  // of the pop-ups, scrolled sideways with the table
  LookTable* table_;
  std::vector<Column> columns_;
  std::vector<int> widths_;  // of the table's columns
  CsvLines lines_;
  bool has_new_lines_ = false;
  std::vector<std::size_t> disagreeing_;  // of the lines, ascending
};

}  // namespace tallyfold::desktop
