#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "registers/table_state.h"

namespace tallyfold::desktop {

// A table as it is, in the toolkit's own looks.
class PlainTable final : public QTableView, private TableState::Observer {
  Q_OBJECT

 public:
  // `table` must outlive this.
  PlainTable(TableState& table, QWidget* parent);
  ~PlainTable() override;

 signals:
  void RowSelected(int row);
  void RowActivated(int row);
  void HeaderClicked(const QString& column);

 private:
  class Model;

  void TableChanged(const TableState& table, TableState::Change change) override;
  void RowsChanged(const TableState& table, const RowsChange& change) override;
  void keyPressEvent(QKeyEvent* event) override;
  void ShowColumns();
  void ShowSelection();

  TableState& table_;
  Model* model_;
  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
