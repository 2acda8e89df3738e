#pragma once

#include <QLineEdit>
#include <optional>
#include <string>

#include "model/date_number.h"

class QToolButton;

namespace tallyfold::desktop {

// A field for a day: typed in any short shape, stepped by Up and Down, "t" for today, + and - while
// the whole field is selected, or chosen from a calendar.
class DateField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit DateField(QWidget* parent = nullptr);

  // In calendar-date conversion letters; the user's short format at first. The day shown is written
  // anew.
  void SetFormat(std::string format);
  void SetDay(DateNumber day);
  // As typed up to here; none for what is no day.
  [[nodiscard]] std::optional<DateNumber> Day() const;
  void OpenCalendar();

 signals:
  // The user has typed, stepped to or chosen a day.
  void DayChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QString Written(DateNumber day) const;
  void Step(int days);
  void TakeDay(DateNumber day);

  QToolButton* button_;
  std::string format_;
  // The last one that was read; a day without month and year is meant from it.
  DateNumber day_;
};

}  // namespace tallyfold::desktop
