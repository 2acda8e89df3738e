#include "desktop/tabs/next_dates.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "model/account_schedule.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLinesInColumn = 4;
// Narrower tabs have fewer columns of dates.
constexpr int kThreeDateColumns = 760;
constexpr int kTwoDateColumns = 480;

int ColumnsIn(int width) {
  return width >= kThreeDateColumns ? 3 : width >= kTwoDateColumns ? 2 : 1;
}

QLabel* DateLabel(QWidget* parent, const QString& text) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

void MakeDim(QWidget& label) {
  label.setForegroundRole(QPalette::PlaceholderText);
}

// Number, day and what is special about it, with a rule below.
class DateRow final : public QWidget {
 public:
  DateRow(const QString& number, const ScheduleDateLine& line, int day_width, QWidget* parent)
      : QWidget(parent) {
    setFixedHeight(RowHeight(fontMetrics()));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kWideGap);
    auto* count = new FigureLabel(this);
    count->setText(number);
    count->setFont(SmallFont(font()));
    count->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    count->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String("00")));
    MakeDim(*count);
    row->addWidget(count);
    auto* day = DateLabel(this, ToQString(line.text));
    day->setMinimumWidth(day_width);
    if (IsSkippedMonth(line)) {
      QFont struck = day->font();
      struck.setStrikeOut(true);
      day->setFont(struck);
      MakeDim(*day);
    }
    row->addWidget(day);
    row->addWidget(MakeNote(line), 1);
  }

 private:
  QLabel* MakeNote(const ScheduleDateLine& line) {
    const DueDay due = DueDayOf(line, TodaysDateNumber());
    auto* note = DateLabel(this, due == DueDay::Today  ? Text("due today")
                                 : due == DueDay::Past ? Text("late")
                                                       : ToQString(line.note));
    if (due == DueDay::Later) {
      MakeDim(*note);
    } else {
      SetTextInk(*note, due == DueDay::Today ? Role::Good : Role::Warning);
    }
    return note;
  }
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    DrawRuleBelow(painter, rect(), ColorsOf(palette())[Role::Hair]);
  }
};

}  // namespace

NextDates::NextDates(QWidget* parent)
    : QWidget(parent),
      name_(DateLabel(this, QString())),
      note_(DateLabel(this, QString())),
      area_(new QScrollArea(this)) {
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  name_->setObjectName(QLatin1String("schedule_Dates_Name"));
  name_->setFont(DemiBoldFont(font()));
  note_->setObjectName(QLatin1String("schedule_Dates_Note"));
  note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  MakeDim(*note_);
  auto* heading = new QHBoxLayout;
  heading->setContentsMargins(kOuterCellPadding, 0, kOuterCellPadding, 0);
  heading->setSpacing(kWideGap);
  heading->addWidget(name_);
  heading->addWidget(note_, 1);
  heading->addStrut(kStatusHeight);
  area_->setWidgetResizable(true);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->viewport()->setBackgroundRole(QPalette::Base);
  area_->setMinimumHeight(kLinesInColumn * RowHeight(fontMetrics()) + kGroupGap);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(heading);
  column->addWidget(area_, 1);
}

void NextDates::Show(const LDGRAccountSchedule* schedule) {
  lines_.clear();
  if (schedule != nullptr) lines_ = ScheduleDates(*schedule);
  name_->setText(schedule != nullptr ? ToQString(DatesHeading(*schedule)) : QString());
  note_->setText(schedule != nullptr ? ToQString(DatesNote(*schedule, lines_)) : QString());
  note_->setToolTip(PlainToolTip(note_->text()));
  LayOut();
}

void NextDates::LayOut() {
  columns_ = ColumnsIn(width());
  auto* page = new QWidget;
  page->setObjectName(QLatin1String("schedule_Dates"));
  page->setBackgroundRole(QPalette::Base);
  page->setAutoFillBackground(true);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(kOuterCellPadding, 0, kOuterCellPadding, kGroupGap);
  grid->setHorizontalSpacing(kColumnGap);
  grid->setVerticalSpacing(0);
  int day_width = 0;
  for (const ScheduleDateLine& line : lines_) {
    day_width = std::max(day_width, fontMetrics().horizontalAdvance(ToQString(line.text)));
  }
  const int count = static_cast<int>(lines_.size());
  const int in_column = std::max(kLinesInColumn, (count + columns_ - 1) / columns_);
  int number = 0;
  int place = 0;
  for (const ScheduleDateLine& line : lines_) {
    const QString shown = IsSkippedMonth(line) ? QString() : QString::number(++number);
    grid->addWidget(new DateRow(shown, line, day_width, page), place % in_column,
                    place / in_column);
    ++place;
  }
  for (int i = 0; i < columns_; ++i) grid->setColumnStretch(i, 1);
  grid->setRowStretch(in_column, 1);
  // The former page goes with its rows.
  area_->setWidget(page);
}

void NextDates::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (ColumnsIn(width()) != columns_) LayOut();
}

}  // namespace tallyfold::desktop
