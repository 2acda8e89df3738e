#pragma once

#include <QStringList>
#include <QTableView>
#include <vector>

#include "desktop/register/cell_delegate.h"
#include "desktop/register/cell_look.h"

namespace tallyfold::desktop {

// A small table of cells that somebody has made already, with one row chosen or none: a list of
// choices with what speaks for each.
class LookTable final : public QTableView, public RowStates {
  Q_OBJECT

 public:
  using Row = std::vector<CellLook>;
  struct Column {
    QString title;
    // Least width; the widest cell decides beyond it.
    int width = 0;
    CellLook::Align align = CellLook::Align::Leading;
    bool takes_rest = false;
  };

  explicit LookTable(QWidget* parent);

  void SetColumns(std::vector<Column> columns);
  // Without a row of titles where all are "".
  void SetRows(std::vector<Row> rows);
  // -1 for none; tells nobody.
  void ShowChosen(int row);
  // As tall as so many rows and the titles.
  void SetRowsInSight(int count);
  // In the middle in place of rows; "" for nothing.
  void SetEmptyText(const QString& text);
  [[nodiscard]] RowState StateOf(int row) const override;

 signals:
  void RowChosen(int row);
  // A double click or Return.
  void RowActivated(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;

 private:
  class Model;

  void FitColumns();
  void PaintRow(QPainter& painter, int row) const;

  Model* model_;
  std::vector<Column> columns_;
  QString empty_text_;
  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
