#include "desktop/tabs/schedule_tab.h"

#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/desk.h"
#include "app/schedules/schedules_tab.h"
#include "desktop/register/register_view.h"
#include "desktop/tabs/empty_page.h"
#include "desktop/tabs/next_dates.h"
#include "desktop/texts.h"
#include "registers/schedule_list.h"

namespace tallyfold::desktop {

ScheduleTab::ScheduleTab(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      splitter_(new QSplitter(Qt::Vertical, this)),
      words_(parts.schedules.Rows()),
      table_(new RegisterView(parts.schedules.Table(), splitter_)),
      empty_(new EmptyPage(*table_, "schedule")),
      dates_(new NextDates(splitter_)) {
  table_->setObjectName(QLatin1String("schedule_Table"));
  table_->setAccessibleName(Text("Scheduled Entries"));
  table_->SetDetails(&words_);
  table_->SetFirstColumns(DefaultScheduleColumns());
  table_->SetSelectsOneRow(true);
  splitter_->setObjectName(QLatin1String("schedule_Splitter"));
  splitter_->setChildrenCollapsible(false);
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
  dates_->Show(parts_.schedules.Rows().SelectedSchedule().get());
}

}  // namespace tallyfold::desktop
