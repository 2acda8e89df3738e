#include "desktop/sheets/reminder_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "app/desk.h"
#include "app/schedules/schedule_reminder.h"
#include "desktop/fields/amount_field.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "model/amounts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

enum Column { kMark, kDate, kType, kDescription, kToFrom, kAmount, kColumns };
constexpr int kReminderWidth = 900;
constexpr int kTableHeight = 240;

using Key = std::tuple<const LDGRAccountSchedule*, DateNumber, DateNumber, std::size_t>;

Key KeyOf(const ReminderRow& row) {
  return {row.schedule.get(), row.days.front(), row.days.back(), row.days.size()};
}

bool AreSameRow(const ReminderRow& a, const ReminderRow& b) {
  return a.schedule == b.schedule && a.days == b.days;
}

}  // namespace

ReminderDialog::ReminderDialog(ScheduleReminder& reminder, const Desk& desk, QWidget* window)
    : SheetDialog(window, Text("Scheduled Entries")),
      reminder_(reminder),
      desk_(desk),
      sentence_(new QLabel(this)),
      table_(new QTableWidget(0, kColumns, this)),
      look_ahead_(new QLineEdit(this)),
      unit_(new QComboBox(this)),
      balance_mode_(new QComboBox(this)),
      balance_(new QLabel(this)) {
  setObjectName(QLatin1String("scheduleReminderSheet"));
  SetWantedWidth(kReminderWidth);
  for (QLabel* label : {sentence_, balance_}) {
    label->setTextFormat(Qt::PlainText);
    label->setFont(DemiBoldFont(LargerFont(font(), kStatusFigurePoints)));
  }
  table_->setObjectName(QLatin1String("scheduleReminderSheet_Table"));
  table_->setAccessibleName(Text("Scheduled Entries"));
  table_->setHorizontalHeaderLabels({QString(), Text("Date"), Text("Type"), Text("Description"),
                                     Text("To/From"), Text("Amount")});
  table_->horizontalHeader()->setSectionResizeMode(kDescription, QHeaderView::Stretch);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(ControlHeight(fontMetrics()));
  table_->setShowGrid(false);
  table_->setMinimumHeight(kTableHeight);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setTabKeyNavigation(false);
  table_->setColumnWidth(kMark, kNumberFieldWidth / 2);
  table_->setColumnWidth(kDate, kDateFieldWidth + kGroupGap);
  table_->setColumnWidth(kAmount, kAmountFieldWidth);

  look_ahead_->setObjectName(QLatin1String("scheduleReminderSheet_LookAhead"));
  look_ahead_->setAccessibleName(Text("Look ahead"));
  look_ahead_->setFixedWidth(kNumberFieldWidth);
  unit_->setObjectName(QLatin1String("scheduleReminderSheet_LookAheadType_PopUp"));
  unit_->setAccessibleName(Text("Unit of the look-ahead"));
  balance_mode_->setObjectName(QLatin1String("scheduleReminderSheet_Balance_PopUp"));
  balance_mode_->setAccessibleName(Text("Balance"));
  balance_->setObjectName(QLatin1String("scheduleReminderSheet_Balance_Field"));
  auto* label = new QLabel(Text("Look ahead"), this);
  label->setBuddy(look_ahead_);
  auto* below = new QHBoxLayout;
  for (QWidget* each : std::initializer_list<QWidget*>{label, look_ahead_, unit_}) {
    below->addWidget(each);
  }
  below->addStretch(1);
  below->addWidget(balance_mode_);
  below->addWidget(balance_);
  Body().addWidget(sentence_);
  Body().addWidget(table_, 1);
  Body().addLayout(below);
  connect(look_ahead_, &QLineEdit::textEdited, this,
          [this](const QString& text) { reminder_.scheduleReminderSheet_LookAhead(ToUtf8(text)); });
  connect(unit_, &QComboBox::activated, this,
          [this] { reminder_.LookAheadType(unit_->currentData().toInt()); });
  connect(balance_mode_, &QComboBox::activated, this,
          [this] { reminder_.BalanceModeChosen(balance_mode_->currentData().toInt()); });
  MakeButtons();
}

void ReminderDialog::MakeButtons() {
  connect(AddLeadingButton("scheduleReminderSheet_Skip_Button", Text("Skip Marked")),
          &QPushButton::clicked, this, [this] { reminder_.SkipMarked(); });
  connect(AddLeadingButton("scheduleReminderSheet_Later_Button", Text("Later")),
          &QPushButton::clicked, this, [this] { Cancel(); });
  connect(AddButton("scheduleReminderSheet_CommitAll_Button", Text("Commit All")),
          &QPushButton::clicked, this, [this] { reminder_.CommitAll(); });
  connect(AddButton("scheduleReminderSheet_Commit_Button", Text("Commit Marked"), true),
          &QPushButton::clicked, this, [this] { reminder_.CommitMarked(); });
}

void ReminderDialog::Cancel() {
  reminder_.Later();
}

void ReminderDialog::MakeRow(int row) {
  const ReminderRow& of = shown_[static_cast<std::size_t>(row)];
  auto* mark = new QCheckBox;
  mark->setObjectName(QLatin1String("scheduleReminderSheet_Mark_Button"));
  mark->setAccessibleName(Text("Marked"));
  table_->setCellWidget(row, kMark, mark);
  connect(mark, &QCheckBox::toggled, this, [this] { Read(); });
  const auto put = [this, row, &of](Column column, const std::string& text) {
    auto* item = new QTableWidgetItem(ToQString(text));
    item->setToolTip(item->text());
    QFont look = table_->font();
    look.setItalic(of.is_ahead);
    item->setFont(look);
    table_->setItem(row, column, item);
  };
  put(kType, of.type);
  put(kDescription, of.description);
  put(kToFrom, of.to_from);
  if (of.date_is_enabled) {
    auto* date = new DateField;
    date->setObjectName(QLatin1String("scheduleReminderSheet_Date_Field"));
    date->setAccessibleName(Text("Date"));
    date->SetFormat(RegisterDateFormat(desk_.preferences()));
    date->SetDay(of.typed.date.value_or(of.days.front()));
    table_->setCellWidget(row, kDate, date);
    connect(date, &QLineEdit::textChanged, this, [this] { Read(); });
  } else {
    put(kDate, of.days_text);
  }
  auto* amount = new AmountField;
  amount->setObjectName(QLatin1String("scheduleReminderSheet_Amount_Field"));
  amount->setAccessibleName(Text("Amount"));
  amount->setText(ToQString(FixedAmountString(of.typed.amount.value_or(0.0))));
  amount->setEnabled(of.amount_is_enabled);
  table_->setCellWidget(row, kAmount, amount);
  connect(amount, &QLineEdit::textChanged, this, [this] { Read(); });
}

ReminderRow::Typed ReminderDialog::TypedIn(int row) const {
  ReminderRow::Typed typed = shown_[static_cast<std::size_t>(row)].typed;
  typed.is_marked = static_cast<QCheckBox*>(table_->cellWidget(row, kMark))->isChecked();
  if (const auto* date = static_cast<DateField*>(table_->cellWidget(row, kDate))) {
    typed.date = date->Day();
  }
  const auto* amount = static_cast<AmountField*>(table_->cellWidget(row, kAmount));
  if (amount->isEnabled()) typed.amount = amount->Amount();
  return typed;
}

QString ReminderDialog::TextIn(int row, int column) const {
  const auto* field = static_cast<QLineEdit*>(table_->cellWidget(row, column));
  return field == nullptr ? QString() : field->text();
}

void ReminderDialog::Read() {
  if (is_showing_ || !reminder_.State().is_open) return;
  std::vector<ReminderRow::Typed> rows;
  for (int row = 0; row < table_->rowCount(); ++row) rows.push_back(TypedIn(row));
  reminder_.Read(rows);
}

bool ReminderDialog::EndEditing() {
  Read();
  return true;
}

void ReminderDialog::ShowState() {
  const ScheduleReminderState& state = reminder_.State();
  if (!state.is_open) return;
  const QScopedValueRollback<bool> showing(is_showing_, true);
  sentence_->setText(ToQString(Message("Due: {1}. To come: {2}.",
                                       {std::to_string(state.due), std::to_string(state.ahead)})));
  ShowRows();
  if (ToUtf8(look_ahead_->text()) != state.typed.look_ahead) {
    look_ahead_->setText(ToQString(state.typed.look_ahead));
  }
  ShowItems(
      *unit_, state.unit_items,
      IndexOfItemTagged(state.unit_items, static_cast<std::int32_t>(state.typed.look_ahead_unit)));
  ShowItems(
      *balance_mode_, state.balance_items,
      IndexOfItemTagged(state.balance_items, static_cast<std::int32_t>(state.typed.balance_mode)));
  balance_->setText(ToQString(state.balance_text));
  ShowRefused();
}

void ReminderDialog::ShowRows() {
  const auto& rows = reminder_.State().rows;
  if (!std::equal(rows.begin(), rows.end(), shown_.begin(), shown_.end(), AreSameRow)) {
    // What was typed stays as it was typed, also where it cannot be read.
    std::map<Key, std::pair<QString, QString>> typed;
    for (int row = 0; row < table_->rowCount(); ++row) {
      typed[KeyOf(shown_[static_cast<std::size_t>(row)])] = {TextIn(row, kDate),
                                                             TextIn(row, kAmount)};
    }
    shown_ = rows;
    table_->setRowCount(0);
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
      MakeRow(row);
      const auto known = typed.find(KeyOf(rows[static_cast<std::size_t>(row)]));
      if (known == typed.end()) continue;
      for (const Column column : {kDate, kAmount}) {
        auto* field = static_cast<QLineEdit*>(table_->cellWidget(row, column));
        if (field == nullptr) continue;
        field->setText(column == kDate ? known->second.first : known->second.second);
      }
    }
  }
  for (int row = 0; row < table_->rowCount(); ++row) {
    static_cast<QCheckBox*>(table_->cellWidget(row, kMark))
        ->setChecked(rows[static_cast<std::size_t>(row)].typed.is_marked);
  }
}

void ReminderDialog::ShowRefused() {
  const auto& problem = reminder_.State().problem;
  ShowProblem(ToQString(TextOf(problem)));
  SetProblem(look_ahead_, problem && problem->field == "scheduleReminderSheet_LookAhead");
  for (int row = 0; row < table_->rowCount(); ++row) {
    for (const Column column : {kDate, kAmount}) {
      QWidget* field = table_->cellWidget(row, column);
      if (field == nullptr) continue;
      const bool is_it =
          problem && problem->row == row && ToUtf8(field->objectName()) == problem->field;
      SetProblem(field, is_it);
      field->setAccessibleDescription(is_it ? ToQString(problem->text) : QString());
    }
  }
}

}  // namespace tallyfold::desktop
