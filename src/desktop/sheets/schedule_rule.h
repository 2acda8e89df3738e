#pragma once

#include <QObject>
#include <string>

#include "app/schedules/schedule_sheet_state.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace tallyfold::desktop {

class DateField;
class Form;

// The rows of the schedule sheet that say how often it recurs and when it ends.
class ScheduleRule final : public QObject {
  Q_OBJECT

 public:
  // Adds them to the form. Days are in that calendar-date format.
  ScheduleRule(Form& form, const std::string& date_format);

  // Touches only what differs; tells nobody.
  void Show(const ScheduleSheetState& state);
  void ReadInto(ScheduleSheetState::Typed& typed, const ScheduleSheetState& state) const;

 signals:
  void Edited();

 private:
  void ShowUntil(const ScheduleSheetState::Typed& typed);

  QComboBox* interval_;
  QLineEdit* every_;
  QComboBox* until_type_;
  QLineEdit* until_count_;
  DateField* until_date_;
  QCheckBox* friday_;
};

}  // namespace tallyfold::desktop
