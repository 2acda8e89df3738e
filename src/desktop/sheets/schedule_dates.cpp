#include "desktop/sheets/schedule_dates.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "app/schedules/schedule_sheet_state.h"
#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kDatesWidth = 392;
constexpr int kCountWidth = 44;
constexpr int kDueDayWidth = 156;
constexpr int kLeastDates = 4;

}  // namespace

QWidget* MakeColumnHeading(const char* icon, const QString& title, QWidget* buddy,
                           QWidget* parent) {
  auto* heading = new QWidget(parent);
  auto* row = new QHBoxLayout(heading);
  row->setContentsMargins(0, 0, 0, 0);
  auto* image = new QLabel(heading);
  image->setPixmap(PixmapNamed(QLatin1String(icon), kIconSize, parent->devicePixelRatioF(),
                               ColorsOf(parent->palette())[Role::Dim]));
  auto* text = new QLabel(title, heading);
  text->setTextFormat(Qt::PlainText);
  text->setFont(DemiBoldFont(parent->font()));
  text->setMinimumHeight(ControlHeight(parent->fontMetrics()));
  text->setBuddy(buddy);
  row->addWidget(image);
  row->addWidget(text);
  row->addStretch(1);
  return heading;
}

ScheduleDatesPanel::ScheduleDatesPanel(QWidget* parent)
    : QWidget(parent), table_(new LookTable(this)), note_(Form::MakeNote(this)) {
  setMinimumWidth(kDatesWidth);
  const QString title = Text("The next twelve dates");
  table_->setObjectName(QLatin1String("scheduleSheet_Dates_Table"));
  table_->setAccessibleName(title);
  table_->SetColumns({{QString(), kCountWidth, CellLook::Align::Trailing, false},
                      {Text("Due"), kDueDayWidth, CellLook::Align::Leading, false},
                      {QString(), 0, CellLook::Align::Leading, true}});
  table_->setMinimumHeight(kLeastDates * RowHeight(fontMetrics()));
  table_->SetEmptyText(Text("The dates appear when what is typed makes a rule."));
  note_->setObjectName(QLatin1String("scheduleSheet_Dates_Note"));
  note_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addWidget(MakeColumnHeading("schedule", title, table_, this));
  column->addWidget(table_, 1);
  column->addWidget(note_);
}

void ScheduleDatesPanel::Show(const ScheduleSheetState& state) {
  std::vector<LookTable::Row> rows;
  int number = 0;
  for (const ScheduleDateLine& line : state.dates) {
    const bool is_skipped = IsSkippedMonth(line);
    CellLook count;
    count.align = CellLook::Align::Trailing;
    count.is_dim = true;
    count.is_figure = true;
    if (!is_skipped) count.text = QString::number(++number);
    CellLook day;
    day.text = ToQString(line.text);
    day.is_dim = day.is_struck = is_skipped;
    CellLook note;
    note.text = ToQString(line.note);
    note.is_dim = is_skipped;
    rows.push_back({std::move(count), std::move(day), std::move(note)});
  }
  table_->SetRows(std::move(rows));
  note_->setText(ToQString(state.dates_note));
}

}  // namespace tallyfold::desktop
