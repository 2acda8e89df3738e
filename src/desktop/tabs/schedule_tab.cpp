#include "desktop/tabs/schedule_tab.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "app/desk.h"
#include "app/schedules/schedules_tab.h"
#include "desktop/look/measures.h"
#include "desktop/register/register_view.h"
#include "desktop/tabs/empty_page.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/schedule_dates.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLinesInColumn = 4;
// Narrower tabs have fewer columns of dates.
constexpr int kThreeDateColumns = 760;
constexpr int kTwoDateColumns = 480;

int ColumnsIn(int width) {
  return width >= kThreeDateColumns ? 3 : width >= kTwoDateColumns ? 2 : 1;
}

QLabel* DateLabel(QWidget* parent, const QString& text, bool is_dim) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  if (is_dim) label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

}  // namespace

ScheduleTab::ScheduleTab(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      splitter_(new QSplitter(Qt::Vertical, this)),
      words_(parts.schedules.Rows()),
      table_(new RegisterView(parts.schedules.Table(), splitter_)),
      empty_(new EmptyPage(*table_, "schedule")),
      heading_(DateLabel(this, QString(), false)) {
  table_->setObjectName(QLatin1String("schedule_Table"));
  table_->setAccessibleName(Text("Scheduled Entries"));
  table_->SetDetails(&words_);
  table_->SetSelectsOneRow(true);
  splitter_->setObjectName(QLatin1String("schedule_Splitter"));
  splitter_->setChildrenCollapsible(false);
  auto* below = new QWidget(splitter_);
  auto* column = new QVBoxLayout(below);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  heading_->setFont(DemiBoldFont(font()));
  heading_->setFixedHeight(kStatusHeight);
  heading_->setContentsMargins(kOuterCellPadding, 0, 0, 0);
  column->addWidget(heading_);
  auto* area = new QScrollArea(below);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setMinimumHeight(kLinesInColumn * RowHeight(fontMetrics()) + kWideGap);
  dates_ = new QWidget(area);
  dates_->setObjectName(QLatin1String("schedule_Dates"));
  area->setWidget(dates_);
  column->addWidget(area, 1);
  splitter_->setStretchFactor(0, 1);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(splitter_);

  empty_->Tell(QString(), Text("Nothing is scheduled in this account."));
  connect(empty_->AddButton("empty_Schedule_Button", Text("New Scheduled Debit...")),
          &QPushButton::clicked, this, &ScheduleTab::ScheduleWanted);
  connect(table_, &RegisterView::RowSelected, this,
          [this](int row) { parts_.schedules.Rows().SelectRow(row); });
  connect(table_, &RegisterView::RowActivated, this, &ScheduleTab::EditWanted);
  connect(table_, &RegisterView::RemoveWanted, this, &ScheduleTab::RemoveWanted);
  connect(table_, &RegisterView::RowMenuWanted, this, &ScheduleTab::RowMenuWanted);
  connect(table_, &RegisterView::ColumnHideWanted, this, [this](const QString& hidden) {
    parts_.schedules.Rows().HideTableColumnWithIdentifier(ToUtf8(hidden));
  });
  connect(table_, &RegisterView::ColumnShowWanted, this, [this](const QString& shown) {
    parts_.schedules.Rows().ShowTableColumnWithIdentifier(ToUtf8(shown));
  });
  connect(table_, &RegisterView::HeaderClicked, this, [this](const QString& clicked) {
    parts_.schedules.Rows().ClickedTableColumn(ToUtf8(clicked));
  });
}

void ScheduleTab::ShowLook() {
  table_->SetLook(TableLookOf(parts_.desk.preferences(), font()));
}

void ScheduleTab::FocusTable() {
  table_->setFocus(Qt::OtherFocusReason);
}

void ScheduleTab::Show() {
  empty_->setVisible(parts_.desk.SelectedAccount() != nullptr &&
                     parts_.schedules.Rows().numberOfRowsInTableView() == 0);
  ShowDates();
}

void ScheduleTab::ShowDates() {
  delete dates_->layout();
  qDeleteAll(dates_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
  const auto schedule = parts_.schedules.Rows().SelectedSchedule();
  heading_->setText(schedule == nullptr ? QString()
                                        : ToQString(Message("Next dates of {1}",
                                                            {schedule->GetDescription().empty()
                                                                 ? schedule->GetToFrom()
                                                                 : schedule->GetDescription()})));
  auto* grid = new QGridLayout(dates_);
  grid->setContentsMargins(kOuterCellPadding, 0, kOuterCellPadding, kGap);
  grid->setHorizontalSpacing(kWideGap);
  grid->setVerticalSpacing(0);
  if (schedule == nullptr) return;
  int number = 0;
  int place = 0;
  const auto lines = ScheduleDates(*schedule);
  columns_ = ColumnsIn(width());
  const int count = static_cast<int>(lines.size());
  const int in_column = std::max(kLinesInColumn, (count + columns_ - 1) / columns_);
  for (const ScheduleDateLine& line : lines) {
    const int row = place % in_column;
    const int column = place / in_column * 3;
    ++place;
    if (line.date != 0) {
      grid->addWidget(DateLabel(dates_, QString::number(++number), true), row, column);
    }
    grid->addWidget(DateLabel(dates_, ToQString(line.text), line.date == 0), row, column + 1);
    grid->addWidget(DateLabel(dates_, ToQString(line.note), true), row, column + 2);
    grid->setColumnStretch(column + 2, 1);
    grid->setRowMinimumHeight(row, RowHeight(fontMetrics()));
  }
  grid->setRowStretch(in_column, 1);
}

void ScheduleTab::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (ColumnsIn(width()) != columns_) ShowDates();
}

}  // namespace tallyfold::desktop
