#include "desktop/sheets/schedule_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "app/desk.h"
#include "app/schedules/schedule_editing.h"
#include "desktop/fields/amount_field.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/schedule_dates.h"
#include "desktop/sheets/schedule_rule.h"
#include "desktop/sheets/split_table.h"
#include "desktop/texts.h"
#include "model/date_format.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kScheduleFormWidth = 400;
constexpr int kScheduleSplitWidth = 440;
constexpr int kSchedulePopUpWidth = 200;
constexpr int kScheduleNoteLines = 2;
constexpr int kScheduleNotePadding = 14;

void ShowText(QLineEdit* field, const std::string& text) {
  if (ToUtf8(field->text()) != text) field->setText(ToQString(text));
}

// Leaves a text that is no day as it was typed.
void ShowDay(DateField* field, const std::optional<std::int32_t>& day) {
  if (day && *day != 0 && field->Day() != day) field->SetDay(*day);
}

QString TitleOf(const ScheduleSheetState& state) {
  QString title = Text("Scheduled Transfer");
  if (state.typed.kind == EntryKind::Debit) title = Text("Scheduled Debit");
  if (state.typed.kind == EntryKind::Deposit) title = Text("Scheduled Deposit");
  if (state.is_new || state.typed.description.empty()) return title;
  return ToQString(Message("{1}: {2}", {ToUtf8(title), state.typed.description}));
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
      dates_(new ScheduleDatesPanel(this)) {
  setObjectName(QLatin1String("scheduleSheet"));
  form_->SetLeastWidth(kScheduleFormWidth);
  const std::string format = RegisterDateFormat(desk_.preferences());
  start_->SetFormat(format);
  form_->Add(Text("First date"), start_, "scheduleSheet_Start_Field", kDateFieldWidth);
  amount_->setObjectName(QLatin1String("scheduleSheet_Amount_Field"));
  amount_->setFixedWidth(kAmountFieldWidth);
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
  rule_ = new ScheduleRule(*form_, format);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(kColumnGap);
  columns->addWidget(form_, 1);
  columns->addWidget(dates_, 1);
  if (split_panel_ != nullptr) columns->addWidget(split_panel_, 1);
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
  MakeSplit();
  connect(split_button_, &QPushButton::clicked, this, [this] {
    ShowSplit(true);
    split_->setFocus();
  });
}

void ScheduleDialog::MakeSplit() {
  split_panel_ = new QWidget(this);
  split_panel_->setMinimumWidth(kScheduleSplitWidth);
  auto* back = new QPushButton(Text("Dates"), split_panel_);
  back->setObjectName(QLatin1String("scheduleSheet_Dates_Button"));
  back->setAutoDefault(false);
  split_ = new SplitTable(split_panel_);
  split_->setObjectName(QLatin1String("scheduleSheet_Split_Table"));
  split_->setAccessibleName(Text("Split"));
  split_->SetToTitle(Typed().kind == EntryKind::Debit ? Text("To") : Text("From"));
  auto* head = new QHBoxLayout;
  head->addWidget(MakeColumnHeading("split", Text("Split"), split_, split_panel_), 1);
  head->addWidget(back);
  auto* column = new QVBoxLayout(split_panel_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addLayout(head);
  column->addWidget(split_);
  column->addStretch(1);
  split_panel_->hide();
  connect(back, &QPushButton::clicked, this, [this] { ShowSplit(false); });
  connect(split_, &SplitTable::Edited, this, [this] { Read(); });
}

void ScheduleDialog::ShowSplit(bool is_shown) {
  if (is_shown == split_panel_->isVisibleTo(this)) return;
  dates_->setVisible(!is_shown);
  split_panel_->setVisible(is_shown);
  Fit();
}

void ScheduleDialog::Connect() {
  connect(tax_, &QCheckBox::toggled, this, [this] { Read(); });
  connect(rule_, &ScheduleRule::Edited, this, [this] { Read(); });
  for (QLineEdit* field : std::initializer_list<QLineEdit*>{start_, amount_, description_}) {
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
  typed.notes = notes_->document()->isModified() ? ToUtf8(notes_->toPlainText()) : stored_notes_;
  rule_->ReadInto(typed, editing_.State());
  editing_.Read(std::move(typed));
}

bool ScheduleDialog::EndEditing() {
  if (split_ != nullptr) split_->EndCellEditing();
  amount_->AddUp();
  description_->TakeCompletion();
  if (to_from_ != nullptr) to_from_->TakeCompletion();
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
    amount_->SetAside(!state.amount_is_enabled);
    ShowAmount(typed.amount);
    ShowText(description_, typed.description);
    if (to_from_ != nullptr) {
      ShowText(to_from_, typed.to_from);
      to_from_->setEnabled(state.to_from_is_enabled);
      choose(type_, state.type_items, typed.type);
      split_->ShowRows(typed.split, state.problem);
    } else {
      ShowItems(*direction_, {{ToUtf8(Text("Transfer To"))}, {ToUtf8(Text("Transfer From")), 1}},
                typed.is_transfer_origin ? 0 : 1);
      choose(account_, state.account_items, typed.transfer_account);
    }
    if (check_ != nullptr) check_->setChecked(typed.is_check);
    tax_->setChecked(typed.tax_deductible);
    if (!has_begun_) {
      stored_notes_ = typed.notes;
      notes_->setPlainText(ToQString(stored_notes_));
      description_->SetTexts(state.descriptions);
      if (to_from_ != nullptr) {
        to_from_->SetTexts(state.to_froms);
        split_->SetCompletions(state.descriptions, state.to_froms);
      }
      start_->setFocus();
      has_begun_ = true;
    }
    rule_->Show(state);
    dates_->Show(state);
  }
  const bool is_at_field = form_->ShowProblem(state.problem);
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(state.problem)));
  if (state.problem && state.problem != shown_problem_) {
    if (is_at_field) form_->FieldWithProblem()->setFocus();
    if (state.problem->row >= 0 && split_ != nullptr) {
      ShowSplit(true);
      split_->SelectAmount(state.problem->row);
    }
  }
  shown_problem_ = state.problem;
}

void ScheduleDialog::ShowAmount(const std::optional<double>& amount) {
  if (!amount || TypedAmount() == amount) return;
  amount_->setText(*amount == 0.0 ? QString() : TextOfAmount(*amount));
}

}  // namespace tallyfold::desktop
