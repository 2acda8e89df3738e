#pragma once

#include <QWidget>

class QLabel;
class QSplitter;

namespace tallyfold {
class Desk;
class SchedulesTab;
}  // namespace tallyfold

namespace tallyfold::desktop {

class EmptyPage;
class PlainTable;

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
  void FocusTable();
  [[nodiscard]] PlainTable* Table() const noexcept { return table_; }
  [[nodiscard]] QSplitter* Splitter() const noexcept { return splitter_; }

 signals:
  void ScheduleWanted();
  void EditWanted();

 private:
  void ShowDates();

  Parts parts_;
  QSplitter* splitter_;
  PlainTable* table_;
  EmptyPage* empty_;
  QLabel* heading_;
  QWidget* dates_;
};

}  // namespace tallyfold::desktop
