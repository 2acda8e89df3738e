#include "desktop/sheets/reminder_dialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "app/desk.h"
#include "app/schedules/schedule_reminder.h"
#include "desktop/look/assistive.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/reminder_table.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kReminderWidth = 900;
constexpr int kLookAheadWidth = 56;
constexpr int kRowsInSight = 7;

}  // namespace

ReminderDialog::ReminderDialog(ScheduleReminder& reminder, const Desk& desk, QWidget* window)
    : SheetDialog(window, Text("Scheduled Entries")),
      reminder_(reminder),
      sentence_(new QLabel(this)),
      table_(new ReminderTable(desk.preferences(), this)),
      look_ahead_(new QLineEdit(this)),
      unit_(new QComboBox(this)),
      balance_mode_(new QComboBox(this)),
      balance_(new FigureLabel(this)) {
  setObjectName(QLatin1String("scheduleReminderSheet"));
  SetWantedWidth(kReminderWidth);
  sentence_->setObjectName(QLatin1String("scheduleReminderSheet_Sentence_Label"));
  sentence_->setTextFormat(Qt::PlainText);
  sentence_->setWordWrap(true);
  sentence_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  auto* note = Form::MakeNote(this);
  note->setWordWrap(true);
  note->setText(
      Text("What is marked is entered into the register, or skipped, with the next "
           "click."));
  auto* heading = new QVBoxLayout;
  heading->setSpacing(0);
  heading->addWidget(sentence_);
  heading->addWidget(note);

  table_->setObjectName(QLatin1String("scheduleReminderSheet_Table"));
  table_->setAccessibleName(Text("Scheduled Entries"));
  table_->setMinimumHeight(table_->horizontalHeader()->sizeHint().height() +
                           kRowsInSight * RowHeight(fontMetrics()) + 2 * table_->frameWidth());
  Body().setSpacing(kWideGap);
  Body().addLayout(heading);
  Body().addWidget(table_, 1);
  Body().addLayout(MakeFoot());
  connect(table_, &ReminderTable::Edited, this, [this] { Read(); });
  MakeButtons();
}

QLayout* ReminderDialog::MakeFoot() {
  look_ahead_->setObjectName(QLatin1String("scheduleReminderSheet_LookAhead"));
  look_ahead_->setAccessibleName(Text("Look ahead"));
  look_ahead_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  look_ahead_->setFixedWidth(kLookAheadWidth);
  unit_->setObjectName(QLatin1String("scheduleReminderSheet_LookAheadType_PopUp"));
  unit_->setAccessibleName(Text("Unit of the look-ahead"));
  balance_mode_->setObjectName(QLatin1String("scheduleReminderSheet_Balance_PopUp"));
  balance_mode_->setAccessibleName(Text("Balance"));
  balance_mode_->setFrame(false);
  balance_->setObjectName(QLatin1String("scheduleReminderSheet_Balance_Field"));
  balance_->setFont(DemiBoldFont(LargerFont(font(), kStatusFigurePoints)));
  auto* label = new QLabel(Text("Look ahead"), this);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setBuddy(look_ahead_);
  auto* foot = new QHBoxLayout;
  for (QWidget* each : std::initializer_list<QWidget*>{label, look_ahead_, unit_}) {
    foot->addWidget(each);
  }
  foot->addStretch(1);
  foot->addWidget(balance_mode_);
  foot->addWidget(balance_);
  foot->setContentsMargins(0, 0, kCellPadding, 0);
  connect(look_ahead_, &QLineEdit::textEdited, this,
          [this](const QString& text) { reminder_.scheduleReminderSheet_LookAhead(ToUtf8(text)); });
  connect(unit_, &QComboBox::activated, this,
          [this] { reminder_.LookAheadType(unit_->currentData().toInt()); });
  connect(balance_mode_, &QComboBox::activated, this,
          [this] { reminder_.BalanceModeChosen(balance_mode_->currentData().toInt()); });
  return foot;
}

void ReminderDialog::MakeButtons() {
  skip_ = AddLeadingButton("scheduleReminderSheet_Skip_Button", Text("Skip Marked"));
  connect(skip_, &QPushButton::clicked, this, [this] {
    shown_problem_.reset();
    reminder_.SkipMarked();
  });
  connect(AddLeadingButton("scheduleReminderSheet_Later_Button", Text("Later")),
          &QPushButton::clicked, this, [this] { Cancel(); });
  commit_all_ = AddButton("scheduleReminderSheet_CommitAll_Button", Text("Commit All"));
  connect(commit_all_, &QPushButton::clicked, this, [this] {
    shown_problem_.reset();
    reminder_.CommitAll();
  });
  commit_ = AddButton("scheduleReminderSheet_Commit_Button", QString(), true);
  connect(commit_, &QPushButton::clicked, this, [this] {
    shown_problem_.reset();
    reminder_.CommitMarked();
  });
}

void ReminderDialog::Cancel() {
  reminder_.Later();
}

void ReminderDialog::Read() {
  if (!is_showing_ && reminder_.State().is_open) reminder_.Read(table_->Typed());
}

bool ReminderDialog::EndEditing() {
  table_->EndCellEditing();
  Read();
  return true;
}

void ReminderDialog::ShowState() {
  const ScheduleReminderState& state = reminder_.State();
  if (!state.is_open) return;
  {
    const QScopedValueRollback<bool> showing(is_showing_, true);
    sentence_->setText(ToQString(state.sentence));
    table_->ShowRows(state.rows, state.problem);
    if (ToUtf8(look_ahead_->text()) != state.typed.look_ahead) {
      look_ahead_->setText(ToQString(state.typed.look_ahead));
    }
    ShowItems(*unit_, state.unit_items,
              IndexOfItemTagged(state.unit_items,
                                static_cast<std::int32_t>(state.typed.look_ahead_unit)));
    ShowItems(*balance_mode_, state.balance_items,
              IndexOfItemTagged(state.balance_items,
                                static_cast<std::int32_t>(state.typed.balance_mode)));
    balance_->setText(ToQString(state.balance_text));
    NameFigure(*balance_, balance_mode_->currentText(), balance_->text());
    commit_->setText(
        state.marked == 0
            ? Text("Commit Marked")
            : ToQString(Message(Plural("Commit {1} Entry", "Commit {1} Entries", state.marked),
                                {std::to_string(state.marked)})));
    commit_all_->setEnabled(!state.rows.empty());
    skip_->setEnabled(!state.rows.empty());
  }
  ShowProblem(ToQString(TextOf(state.problem)));
  SetProblem(look_ahead_,
             state.problem && state.problem->field == "scheduleReminderSheet_LookAhead");
  if (state.problem && state.problem != shown_problem_) table_->GoToRefused();
  shown_problem_ = state.problem;
}

}  // namespace tallyfold::desktop
