#pragma once

#include <vector>

#include "app/schedules/schedule_reminder_state.h"
#include "desktop/sheets/sheet.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace tallyfold {
class Desk;
class ScheduleReminder;
}  // namespace tallyfold

namespace tallyfold::desktop {

// The scheduled entries that are due, to be marked and committed, skipped or left for later.
class ReminderDialog final : public SheetDialog {
 public:
  // Both must outlive the sheet.
  ReminderDialog(ScheduleReminder& reminder, const Desk& desk, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;
  void Cancel() override;

 private:
  void MakeButtons();
  void MakeRow(int row);
  void ShowRows();
  void ShowRefused();
  void Read();
  [[nodiscard]] ReminderRow::Typed TypedIn(int row) const;
  // Of a field in a cell; "" where there is none.
  [[nodiscard]] QString TextIn(int row, int column) const;

  ScheduleReminder& reminder_;
  const Desk& desk_;
  QLabel* sentence_;
  QTableWidget* table_;
  QLineEdit* look_ahead_;
  QComboBox* unit_;
  QComboBox* balance_mode_;
  QLabel* balance_;
  // The rows that the table has widgets for.
  std::vector<ReminderRow> shown_;
  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
