#pragma once

#include <QWidget>

class QLabel;

namespace tallyfold {
struct ScheduleSheetState;
}

namespace tallyfold::desktop {

class LookTable;

// The dates that a scheduled entry comes to next: those that the weekend moves say when they are
// paid, months that lack its day are struck through.
class ScheduleDatesPanel final : public QWidget {
 public:
  explicit ScheduleDatesPanel(QWidget* parent);

  void Show(const ScheduleSheetState& state);

 private:
  LookTable* table_;
  QLabel* note_;
};

// A sheet's heading over one of its columns: an icon and a word in demi-bold, which is told to
// belong to `buddy`.
[[nodiscard]] QWidget* MakeColumnHeading(const char* icon, const QString& title, QWidget* buddy,
                                         QWidget* parent);

}  // namespace tallyfold::desktop
