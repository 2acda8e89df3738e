#pragma once

#include <QWidget>

#include "desktop/register/entry_details.h"

class QSplitter;

namespace tallyfold {
class Desk;
class SchedulesTab;
}  // namespace tallyfold

namespace tallyfold::desktop {

class EmptyPage;
class NextDates;
class RegisterView;

// The scheduled entries, and below them the next dates of the selected one.
class ScheduleTab final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    SchedulesTab& schedules;
    const Desk& desk;
  };
  ScheduleTab(const Parts& parts, QWidget* parent);

  void Show();
  // Draws everything as the preferences want it now.
  void ShowLook();
  void FocusTable();
  [[nodiscard]] RegisterView* Table() const noexcept { return table_; }
  [[nodiscard]] QSplitter* Splitter() const noexcept { return splitter_; }

 signals:
  void ScheduleWanted();
  void EditWanted();
  void RemoveWanted();
  void RowMenuWanted(const QPoint& place);

 private:
  Parts parts_;
  QSplitter* splitter_;
  ScheduleDetails words_;
  RegisterView* table_;
  EmptyPage* empty_;
  NextDates* dates_;
};

}  // namespace tallyfold::desktop
