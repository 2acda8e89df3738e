#pragma once

#include <optional>
#include <string>

#include "app/face/problem.h"
#include "app/schedules/schedule_sheet_state.h"
#include "desktop/fields/combo_box_cell.h"
#include "desktop/sheets/sheet.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;

namespace tallyfold {
class Desk;
class ScheduleEditing;
}  // namespace tallyfold

namespace tallyfold::desktop {

class AmountField;
class DateField;
class Form;
class ScheduleDatesPanel;
class ScheduleRule;
class SplitTable;

// A scheduled entry: what is entered and when, and beside it the dates it comes to, or the lines of
// its split.
class ScheduleDialog final : public SheetDialog {
 public:
  // Both must outlive the sheet.
  ScheduleDialog(ScheduleEditing& editing, const Desk& desk, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;
  void Cancel() override;

 private:
  void MakeEntryFields();
  void MakeTransferFields();
  void MakeSplit();
  // In the place of the dates.
  void ShowSplit(bool is_shown);
  QComboBox* AddPopUp(const QString& label, const char* name);
  void Connect();
  void Read();
  void OK();
  void ShowAmount(const std::optional<double>& amount);
  [[nodiscard]] std::optional<double> TypedAmount() const;
  [[nodiscard]] const ScheduleSheetState::Typed& Typed() const;

  ScheduleEditing& editing_;
  const Desk& desk_;
  Form* form_;
  DateField* start_;
  QComboBox* type_ = nullptr;
  QComboBox* direction_ = nullptr;
  QComboBox* account_ = nullptr;
  AmountField* amount_;
  QPushButton* split_button_ = nullptr;
  LDGRComboBoxCell* description_;
  LDGRComboBoxCell* to_from_ = nullptr;
  QCheckBox* check_ = nullptr;
  QCheckBox* tax_;
  QPlainTextEdit* notes_;
  ScheduleRule* rule_ = nullptr;
  ScheduleDatesPanel* dates_;
  QWidget* split_panel_ = nullptr;
  SplitTable* split_ = nullptr;
  std::optional<Problem> shown_problem_;
  // As stored, whatever the field makes of them.
  std::string stored_notes_;
  bool is_showing_ = false;
  bool has_begun_ = false;
};

}  // namespace tallyfold::desktop
