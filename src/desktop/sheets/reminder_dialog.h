#pragma once

#include <optional>

#include "app/face/problem.h"
#include "desktop/sheets/sheet.h"

class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

namespace tallyfold {
class Desk;
class ScheduleReminder;
}  // namespace tallyfold

namespace tallyfold::desktop {

class FigureLabel;
class ReminderTable;

// The scheduled entries that are due, to be marked and committed, skipped or left for later.
class ReminderDialog final : public SheetDialog {
 public:
  // Both must outlive the sheet.
  ReminderDialog(ScheduleReminder& reminder, const Desk& desk, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;
  void Cancel() override;

 private:
  QLayout* MakeFoot();
  void MakeButtons();
  void Read();

  ScheduleReminder& reminder_;
  QLabel* sentence_;
  ReminderTable* table_;
  QLineEdit* look_ahead_;
  QComboBox* unit_;
  QComboBox* balance_mode_;
  FigureLabel* balance_;
  QPushButton* skip_ = nullptr;
  QPushButton* commit_all_ = nullptr;
  QPushButton* commit_ = nullptr;
  std::optional<Problem> shown_problem_;
  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
