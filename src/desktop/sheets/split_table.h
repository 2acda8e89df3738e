#pragma once

#include <optional>

#include "app/entries/entry_sheet_state.h"
#include "app/face/problem.h"
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
  // Touches only lines that differ, so that a text that is no amount stays as typed. A problem of
  // the sheet may be of a line's amount.
  void ShowRows(const SplitRows& rows, const std::optional<Problem>& problem);
  [[nodiscard]] SplitRows Rows() const;
  void SelectFirst();
  void SelectAmount(int row);

 signals:
  // The text of a cell is another.
  void Edited();

 protected:
  [[nodiscard]] QModelIndex Refused() const override;
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
  std::optional<Problem> problem_;
};

}  // namespace tallyfold::desktop
