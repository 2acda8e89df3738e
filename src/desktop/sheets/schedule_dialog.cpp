#include "desktop/sheets/schedule_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <charconv>

#include "app/desk.h"
#include "app/schedules/schedule_editing.h"
#include "desktop/fields/amount_field.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/split_table.h"
#include "desktop/texts.h"
#include "model/amounts.h"
#include "model/date_format.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

using Until = LDGRAccountSchedule::Until;

constexpr int kScheduleFormWidth = 400;
constexpr int kSideWidth = 440;
constexpr int kSchedulePopUpWidth = 200;
constexpr int kEveryWidth = 56;
constexpr int kNumberColumn = 44;
constexpr int kDayColumn = 156;
constexpr int kScheduleNoteLines = 2;
constexpr int kScheduleNotePadding = 14;

std::optional<std::int32_t> NumberOf(const QLineEdit& field) {
  const std::string text = ToUtf8(field.text().trimmed());
  const char* const end = text.data() + text.size();
  std::int32_t number = 0;
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || rest != end) return std::nullopt;
  return number;
}

void ShowText(QLineEdit* field, const std::string& text) {
  if (ToUtf8(field->text()) != text) field->setText(ToQString(text));
}

void ShowNumber(QLineEdit* field, const std::optional<std::int32_t>& number) {
  if (number && NumberOf(*field) != number) field->setText(QString::number(*number));
}

// Leaves a text that is no day as it was typed.
void ShowDay(DateField* field, const std::optional<std::int32_t>& day) {
  if (day && *day != 0 && field->Day() != day) field->SetDay(*day);
}

QLabel* HeadingOf(const QString& text, QWidget* parent) {
  auto* heading = new QLabel(text, parent);
  heading->setTextFormat(Qt::PlainText);
  heading->setFont(DemiBoldFont(parent->font()));
  return heading;
}

QString TitleOf(const ScheduleSheetState& state) {
  switch (state.typed.kind) {
    case EntryKind::Debit:
      return Text("Scheduled Debit");
    case EntryKind::Deposit:
      return Text("Scheduled Deposit");
    case EntryKind::Transfer:
      break;
  }
  return Text("Scheduled Transfer");
}

}  // namespace

ScheduleDialog::ScheduleDialog(ScheduleEditing& editing, const Desk& desk, QWidget* window)
    : SheetDialog(window, TitleOf(editing.State())),
      editing_(editing),
      desk_(desk),
      form_(new Form(this)),
      start_(new DateField(form_)),
      amount_(new AmountField(form_)),
      description_(new LDGRComboBoxCell(form_)),
      tax_(new QCheckBox(Text("Tax-deductible"), form_)),
      notes_(new QPlainTextEdit(form_)),
      every_(new QLineEdit(form_)),
      until_count_(new QLineEdit(form_)),
      until_date_(new DateField(form_)),
      friday_(new QCheckBox(Text("On a weekend, the Friday before"), form_)) {
  setObjectName(QLatin1String("scheduleSheet"));
  form_->setMinimumWidth(kScheduleFormWidth);
  const std::string format = RegisterDateFormat(desk_.preferences());
  start_->SetFormat(format);
  until_date_->SetFormat(format);
  form_->Add(Text("First date"), start_, "scheduleSheet_Start_Field", kDateFieldWidth);
  amount_->setObjectName(QLatin1String("scheduleSheet_Amount_Field"));
  amount_->setFixedWidth(kAmountFieldWidth);
  side_ = new QStackedWidget(this);
  side_->setMinimumWidth(kSideWidth);
  side_->addWidget(MakeDates());
  if (Typed().kind == EntryKind::Transfer) {
    MakeTransferFields();
  } else {
    MakeEntryFields();
  }
  tax_->setObjectName(QLatin1String("scheduleSheet_TaxDeductible_Button"));
  form_->AddUnlabelled(tax_);
  notes_->setTabChangesFocus(true);
  notes_->setMinimumHeight(kScheduleNoteLines * fontMetrics().lineSpacing() + kScheduleNotePadding);
  notes_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
  form_->Add(Text("Notes"), notes_, "scheduleSheet_Notes_Field");
  MakeRule();
  auto* columns = new QHBoxLayout;
  columns->setSpacing(kColumnGap);
  columns->addWidget(form_, 1);
  columns->addWidget(side_, 1);
  Body().addLayout(columns, 1);
  connect(AddButton("scheduleSheet_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  connect(AddButton("scheduleSheet_OK_Button", Text("OK"), true), &QPushButton::clicked, this,
          [this] { OK(); });
  Connect();
}

QComboBox* ScheduleDialog::AddPopUp(const QString& label, const char* name) {
  auto* pop_up = new QComboBox(form_);
  form_->Add(label, pop_up, name, kSchedulePopUpWidth);
  connect(pop_up, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  return pop_up;
}

void ScheduleDialog::MakeTransferFields() {
  direction_ = AddPopUp(Text("Direction"), "scheduleSheet_Direction_PopUp");
  account_ = AddPopUp(Text("Account"), "scheduleSheet_Account_PopUp");
  form_->AddRow(Text("Amount"), {amount_});
  form_->Add(Text("Description"), description_, "scheduleSheet_Description_Field");
}

void ScheduleDialog::MakeEntryFields() {
  type_ = AddPopUp(Text("Type"), "scheduleSheet_Type_PopUp");
  const bool is_debit = Typed().kind == EntryKind::Debit;
  if (is_debit) {
    check_ = new QCheckBox(Text("Check"), form_);
    check_->setObjectName(QLatin1String("scheduleSheet_Check_Button"));
    auto* note = Form::MakeNote(form_);
    note->setText(Text("gets its number when committed"));
    form_->AddRow({}, {check_, note});
    connect(check_, &QCheckBox::toggled, this, [this] { Read(); });
  }
  split_button_ = new QPushButton(Text("Split..."), form_);
  split_button_->setObjectName(QLatin1String("scheduleSheet_Split_Button"));
  split_button_->setAutoDefault(false);
  form_->AddRow(Text("Amount"), {amount_, split_button_});
  form_->Add(Text("Description"), description_, "scheduleSheet_Description_Field");
  to_from_ = new LDGRComboBoxCell(form_);
  form_->Add(is_debit ? Text("To") : Text("From"), to_from_, "scheduleSheet_ToFrom_Field");
  connect(to_from_, &QLineEdit::textChanged, this, [this] { Read(); });
  side_->addWidget(MakeSplit());
  connect(split_button_, &QPushButton::clicked, this, [this] {
    side_->setCurrentIndex(1);
    split_->setFocus();
  });
}

void ScheduleDialog::MakeRule() {
  form_->AddRule();
  interval_ = new QComboBox(form_);
  interval_->setObjectName(QLatin1String("scheduleSheet_Interval_PopUp"));
  interval_->setFixedWidth(kSchedulePopUpWidth);
  every_->setObjectName(QLatin1String("scheduleSheet_Every_Field"));
  every_->setAccessibleName(Text("Every"));
  every_->setFixedWidth(kEveryWidth);
  form_->AddRow(Text("Repeats"), {interval_, every_});
  until_type_ = new QComboBox(form_);
  until_type_->setObjectName(QLatin1String("scheduleSheet_UntilType_PopUp"));
  until_type_->setFixedWidth(kSchedulePopUpWidth);
  until_count_->setAccessibleName(Text("Number of times"));
  until_count_->setFixedWidth(kNumberFieldWidth);
  until_date_->setAccessibleName(Text("Last date"));
  until_date_->setFixedWidth(kDateFieldWidth);
  form_->AddRow(Text("Ends"), {until_type_, until_count_, until_date_});
  for (QLineEdit* field : {every_, until_count_}) {
    field->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  }
  // Their room stays while they are away.
  for (QWidget* field : {static_cast<QWidget*>(every_), static_cast<QWidget*>(until_date_)}) {
    QSizePolicy policy = field->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    field->setSizePolicy(policy);
  }
  friday_->setObjectName(QLatin1String("scheduleSheet_PrecedingFriday_Button"));
  form_->AddUnlabelled(friday_);
}

QWidget* ScheduleDialog::MakeDates() {
  auto* panel = new QWidget(this);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kWideGap);
  auto* heading = HeadingOf(Text("The next twelve dates"), panel);
  dates_ = new QTreeWidget(panel);
  dates_->setObjectName(QLatin1String("scheduleSheet_Dates_Table"));
  dates_->setAccessibleName(heading->text());
  dates_->setRootIsDecorated(false);
  dates_->setUniformRowHeights(true);
  dates_->setHeaderLabels({QString(), Text("Due"), QString()});
  dates_->header()->setSectionsMovable(false);
  dates_->setColumnWidth(0, kNumberColumn);
  dates_->setColumnWidth(1, kDayColumn);
  heading->setBuddy(dates_);
  column->addWidget(heading);
  column->addWidget(dates_, 1);
  return panel;
}

QWidget* ScheduleDialog::MakeSplit() {
  auto* panel = new QWidget(this);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  auto* heading = HeadingOf(Text("Split"), panel);
  auto* back = new QPushButton(Text("Dates"), panel);
  back->setObjectName(QLatin1String("scheduleSheet_Dates_Button"));
  back->setAutoDefault(false);
  auto* head = new QHBoxLayout;
  head->addWidget(heading);
  head->addStretch(1);
  head->addWidget(back);
  split_ = new SplitTable(panel);
  split_->setObjectName(QLatin1String("scheduleSheet_Split_Table"));
  split_->setAccessibleName(Text("Split"));
  split_->SetToTitle(Typed().kind == EntryKind::Debit ? Text("To") : Text("From"));
  heading->setBuddy(split_);
  column->addLayout(head);
  column->addWidget(split_);
  column->addStretch(1);
  connect(back, &QPushButton::clicked, this, [this] { side_->setCurrentIndex(0); });
  connect(split_, &SplitTable::Edited, this, [this] { Read(); });
  return panel;
}

void ScheduleDialog::Connect() {
  for (QCheckBox* box : {tax_, friday_}) {
    connect(box, &QCheckBox::toggled, this, [this] { Read(); });
  }
  for (QComboBox* pop_up : {interval_, until_type_}) {
    connect(pop_up, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  }
  for (QLineEdit* field : std::initializer_list<QLineEdit*>{start_, amount_, description_, every_,
                                                            until_count_, until_date_}) {
    connect(field, &QLineEdit::textChanged, this, [this] { Read(); });
  }
  connect(notes_, &QPlainTextEdit::textChanged, this, [this] { Read(); });
}

// --- What was typed

const ScheduleSheetState::Typed& ScheduleDialog::Typed() const {
  return editing_.State().typed;
}

std::optional<double> ScheduleDialog::TypedAmount() const {
  if (amount_->text().trimmed().isEmpty()) return 0.0;
  return amount_->Amount();
}

void ScheduleDialog::Read() {
  if (is_showing_ || !editing_.State().is_open) return;
  ScheduleSheetState::Typed typed = Typed();
  typed.start = start_->Day();
  typed.amount = TypedAmount();
  typed.description = ToUtf8(description_->text());
  if (to_from_ != nullptr) {
    typed.to_from = ToUtf8(to_from_->text());
    typed.type = type_->currentData().toInt();
    typed.split = split_->Rows();
  } else {
    typed.is_transfer_origin = direction_->currentIndex() == 0;
    typed.transfer_account = account_->currentData().toInt();
  }
  if (check_ != nullptr) typed.is_check = check_->isChecked();
  typed.tax_deductible = tax_->isChecked();
  if (notes_->document()->isModified()) typed.notes = ToUtf8(notes_->toPlainText());
  typed.repeat_interval_type = interval_->currentData().toInt();
  if (editing_.State().every_is_enabled) typed.repeat_interval = NumberOf(*every_);
  const auto former_until = static_cast<Until>(typed.repeat_until_type);
  typed.repeat_until_type = until_type_->currentData().toInt();
  const auto until = static_cast<Until>(typed.repeat_until_type);
  // A day is no number of times, nor the other way round.
  const bool is_other = until != former_until;
  if (until == Until::Count) {
    const bool is_first = is_other && until_count_->text().isEmpty();
    typed.repeat_until = is_first ? std::optional<std::int32_t>(1) : NumberOf(*until_count_);
  } else if (until == Until::Date) {
    const bool is_first = is_other && until_date_->text().isEmpty();
    typed.repeat_until = is_first ? typed.start : until_date_->Day();
  }
  typed.use_preceding_friday = friday_->isChecked();
  editing_.Read(std::move(typed));
}

bool ScheduleDialog::EndEditing() {
  if (split_ != nullptr) split_->EndCellEditing();
  amount_->AddUp();
  Read();
  return true;
}

void ScheduleDialog::OK() {
  Read();
  shown_problem_.reset();
  editing_.OK();
}

void ScheduleDialog::Cancel() {
  editing_.Cancel();
}

// --- What is shown

void ScheduleDialog::ShowState() {
  const ScheduleSheetState& state = editing_.State();
  if (!state.is_open) return;
  const auto& typed = state.typed;
  {
    const QScopedValueRollback<bool> showing(is_showing_, true);
    const auto choose = [](QComboBox* pop_up, const std::vector<PopUpItem>& items,
                           std::int32_t tag) {
      ShowItems(*pop_up, items, IndexOfItemTagged(items, tag));
    };
    ShowDay(start_, typed.start);
    const auto day = start_->Day();
    form_->SetNote(start_, day ? ToQString(FormatDate(DateNumberToNSCalendarDate(*day), "%A"))
                               : QStringLiteral(" "));
    ShowAmount(typed.amount);
    amount_->setEnabled(state.amount_is_enabled);
    ShowText(description_, typed.description);
    if (to_from_ != nullptr) {
      ShowText(to_from_, typed.to_from);
      to_from_->setEnabled(state.to_from_is_enabled);
      choose(type_, state.type_items, typed.type);
      split_->ShowRows(typed.split);
    } else {
      ShowItems(*direction_, {{ToUtf8(Text("Transfer To"))}, {ToUtf8(Text("Transfer From")), 1}},
                typed.is_transfer_origin ? 0 : 1);
      choose(account_, state.account_items, typed.transfer_account);
    }
    if (check_ != nullptr) check_->setChecked(typed.is_check);
    tax_->setChecked(typed.tax_deductible);
    if (!has_begun_) {
      notes_->setPlainText(ToQString(typed.notes));
      notes_->document()->setModified(false);
      description_->SetTexts(state.descriptions);
      if (to_from_ != nullptr) {
        to_from_->SetTexts(state.to_froms);
        split_->SetCompletions(state.descriptions, state.to_froms);
      }
      start_->setFocus();
      has_begun_ = true;
    }
    choose(interval_, state.interval_items, typed.repeat_interval_type);
    every_->setVisible(state.every_is_enabled);
    ShowNumber(every_, typed.repeat_interval);
    choose(until_type_, state.until_items, typed.repeat_until_type);
    ShowUntil();
    friday_->setEnabled(state.preceding_friday_is_enabled);
    friday_->setChecked(typed.use_preceding_friday);
    ShowDates();
  }
  const bool is_at_field = form_->ShowProblem(state.problem);
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(state.problem)));
  if (state.problem && state.problem != shown_problem_) {
    if (is_at_field) form_->FieldWithProblem()->setFocus();
    if (state.problem->row >= 0 && split_ != nullptr) {
      side_->setCurrentIndex(1);
      split_->SelectAmount(state.problem->row);
    }
  }
  shown_problem_ = state.problem;
}

void ScheduleDialog::ShowAmount(const std::optional<double>& amount) {
  if (!amount || TypedAmount() == amount) return;
  amount_->setText(*amount == 0.0 ? QString() : ToQString(FixedAmountString(*amount)));
}

void ScheduleDialog::ShowUntil() {
  const auto until = static_cast<Until>(Typed().repeat_until_type);
  const bool is_date = until == Until::Date;
  // What is wrong with the end belongs to the field that is shown.
  const QString name = QStringLiteral("scheduleSheet_Until_Field");
  until_count_->setObjectName(is_date ? QString() : name);
  until_date_->setObjectName(is_date ? name : QString());
  until_count_->setVisible(until == Until::Count);
  until_date_->setVisible(is_date);
  if (is_date) ShowDay(until_date_, Typed().repeat_until);
  if (until == Until::Count) ShowNumber(until_count_, Typed().repeat_until);
}

void ScheduleDialog::ShowDates() {
  dates_->clear();
  int number = 0;
  for (const ScheduleDateLine& line : editing_.State().dates) {
    const bool is_skipped = line.date == 0;
    auto* item = new QTreeWidgetItem(dates_, {is_skipped ? QString() : QString::number(++number),
                                              ToQString(line.text), ToQString(line.note)});
    item->setTextAlignment(0, Qt::AlignTrailing | Qt::AlignVCenter);
    if (!is_skipped) continue;
    QFont struck = dates_->font();
    struck.setStrikeOut(true);
    item->setFont(1, struck);
    for (const int column : {1, 2}) {
      item->setForeground(column, dates_->palette().brush(QPalette::PlaceholderText));
    }
  }
}

}  // namespace tallyfold::desktop
