#pragma once

#include <QWidget>
#include <vector>

#include "registers/schedule_dates.h"

class QLabel;
class QScrollArea;

namespace tallyfold {
class LDGRAccountSchedule;
}

namespace tallyfold::desktop {

// The dates that a scheduled entry comes to next, in up to three columns that are read downwards.
class NextDates final : public QWidget {
 public:
  explicit NextDates(QWidget* parent);

  // Null shows nothing.
  void Show(const LDGRAccountSchedule* schedule);

 private:
  void resizeEvent(QResizeEvent* event) override;
  void LayOut();

  QLabel* name_;
  QLabel* note_;
  QScrollArea* area_;
  std::vector<ScheduleDateLine> lines_;
  // Of dates, as they are laid out.
  int columns_ = 0;
};

}  // namespace tallyfold::desktop
