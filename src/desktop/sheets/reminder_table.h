#pragma once

#include <optional>
#include <vector>

#include "app/face/problem.h"
#include "app/schedules/schedule_reminder_state.h"
#include "desktop/sheets/edit_table.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {

// The rows of the reminder: marks that Space and a click turn over, days and amounts that are
// edited in their cells. A text that is no day or no amount stays as it was typed.
class ReminderTable final : public EditTable {
  Q_OBJECT

 public:
  // The preferences must outlive the table.
  ReminderTable(const LDGRPreferences& preferences, QWidget* parent);

  // Touches only what differs, so that the cursor stays.
  void ShowRows(const std::vector<ReminderRow>& rows, const std::optional<Problem>& problem);
  [[nodiscard]] std::vector<ReminderRow::Typed> Typed() const;
  // The cursor goes to the cell that was refused, if it is one of this table.
  void GoToRefused();

 signals:
  // A mark, a day or an amount is another.
  void Edited();

 protected:
  [[nodiscard]] QModelIndex Refused() const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Model;
  class Cells;

  void TurnMarkOver(int row);
  void FitColumns();

  const LDGRPreferences& preferences_;
  Model* model_;
};

}  // namespace tallyfold::desktop
