#pragma once

#include <QScrollArea>
#include <vector>

#include "app/exchange/statement_import_state.h"

class QComboBox;
class QGridLayout;
class QLabel;

namespace tallyfold::desktop {

// The first rows of a table under a pop-up for each column, which says what the column holds.
class StatementColumns final : public QScrollArea {
  Q_OBJECT

 public:
  explicit StatementColumns(QWidget* parent);

  // Hidden for a file that has no columns.
  void Show(const StatementOptionsState& state);

 signals:
  void FieldChosen(int column, int field);

 private:
  struct Column {
    QComboBox* field;
    std::vector<QLabel*> cells;  // of the heading and the rows
  };

  void Make(const StatementOptionsState& state);

  QWidget* page_;
  QGridLayout* grid_;
  std::vector<Column> columns_;
};

}  // namespace tallyfold::desktop
