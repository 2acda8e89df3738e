#pragma once

#include "app/entries/entry_sheet_state.h"
#include "desktop/sheets/edit_table.h"

namespace tallyfold::desktop {

// The ten lines of a split, edited in their cells.
class SplitTable final : public EditTable {
  Q_OBJECT

 public:
  explicit SplitTable(QWidget* parent);

  // Of the column for payees or sources.
  void SetToTitle(const QString& title);
  // What completes the texts of the cells.
  void SetCompletions(FormerTexts descriptions, FormerTexts to_froms);
  // Touches only lines that differ, so that a text that is no amount stays as typed.
  void ShowRows(const SplitRows& rows);
  [[nodiscard]] SplitRows Rows() const;
  void SelectAmount(int row);

 signals:
  // The text of a cell is another.
  void Edited();

 protected:
  // Never onto the number of a line.
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Model;
  class Cells;

  Model* model_;
  Cells* cells_;
};

}  // namespace tallyfold::desktop
