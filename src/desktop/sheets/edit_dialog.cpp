#include "desktop/sheets/edit_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "app/commands/command.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "desktop/fields/amount_field.h"
#include "desktop/fields/date_field.h"
#include "desktop/fields/key_button.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "model/date_format.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kNoteLines = 2;
constexpr int kNotePadding = 14;

QList<QKeySequence> KeysOf(std::string_view command) {
  const QKeySequence key(ToQString(CommandNamed(command)->shortcut), QKeySequence::PortableText);
  if (key != QKeySequence(Qt::CTRL | Qt::Key_Plus)) return {key};
  // The two keys that together are the character on many keyboards.
  return {key, QKeySequence(Qt::CTRL | Qt::Key_Equal),
          QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Plus)};
}

}  // namespace

EditDialog::EditDialog(const Parts& parts, QWidget* window)
    : SheetDialog(window, parts.new_title),
      date_(nullptr),
      parts_(parts),
      prefix_(parts.prefix),
      form_(new Form(this)),
      then_new_(new QWidget(this)) {
  setObjectName(QLatin1String(prefix_));
  date_ = new DateField(form_);
  date_->SetFormat(RegisterDateFormat(parts.desk.preferences()));
  amount_ = new AmountField(form_);
  amount_->setObjectName(QLatin1String(Named("_Amount_Field")));
  amount_->setFixedWidth(kAmountFieldWidth);
  amount_->SetSpeaking(&parts.speaking);
  description_ = new LDGRComboBoxCell(form_);
  cleared_ = new QCheckBox(Text("Resolved"), form_);
  cleared_->setObjectName(QLatin1String(Named("_Cleared_Button")));
  tax_ = new QCheckBox(Text("Tax-deductible"), form_);
  tax_->setObjectName(QLatin1String(Named("_TaxDeductible_Button")));
  notes_ = new QPlainTextEdit(form_);
  notes_->setTabChangesFocus(true);
  notes_->setMinimumHeight(kNoteLines * fontMetrics().lineSpacing() + kNotePadding);
  notes_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);

  connect(date_, &QLineEdit::textChanged, this, [this] { ShowWeekday(); });
  connect(date_, &DateField::DayChanged, this, [this] { Read(); });
  // Also a text that is no day.
  connect(date_, &QLineEdit::textEdited, this, [this] { Read(); });
  connect(amount_, &QLineEdit::textChanged, this, [this] { Read(); });
  connect(description_, &QLineEdit::textEdited, this, [this] { Read(); });
  connect(cleared_, &QCheckBox::toggled, this, [this] { Read(); });
  connect(tax_, &QCheckBox::toggled, this, [this] { Read(); });
  connect(notes_, &QPlainTextEdit::textChanged, this, [this] { Read(); });
  MakeThenNew();
}

void EditDialog::MakeThenNew() {
  auto* row = new QHBoxLayout(then_new_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  auto* label = Form::MakeNote(then_new_);
  label->setFont(font());
  label->setText(Text("OK, then new"));
  row->addWidget(label);
  row->addStretch(1);
  struct Next {
    const char* control;
    QString title;
    const char* icon;
    EntryKind kind;
    // Whose keys it has.
    std::string_view command;
  };
  const Next nexts[] = {
      {"_Debit_Button", Text("Debit"), "debit", EntryKind::Debit, "OKThenNewDebit"},
      {"_Deposit_Button", Text("Deposit"), "deposit", EntryKind::Deposit, "OKThenNewDeposit"},
      {"_Transfer_Button", Text("Transfer"), "transfer", EntryKind::Transfer, "OKThenNewTransfer"},
  };
  for (const Next& next : nexts) {
    auto* button = new LDGRButton(WithoutMnemonics(next.title), then_new_);
    button->setIcon(IconNamed(QLatin1String(next.icon)));
    button->setObjectName(QLatin1String(Named(next.control)));
    button->setAccessibleName(ToQString(Message("OK, then new {1}", {ToUtf8(next.title)})));
    const QList<QKeySequence> keys = KeysOf(next.command);
    button->setToolTip(keys.front().toString(QKeySequence::NativeText));
    button->setAutoDefault(false);
    button->SetKeyEquivalents(keys);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, kind = next.kind] {
      Read();
      parts_.sheet.OKThenNew(kind);
    });
  }
  connect(AddButton(Named("_Cancel_Button").constData(), Text("Cancel")), &QPushButton::clicked,
          this, [this] { Cancel(); });
  connect(AddButton(Named("_OK_Button").constData(), Text("OK"), true), &QPushButton::clicked, this,
          [this] { OK(); });
}

void EditDialog::PutThenNew(bool is_above) {
  SetLeading(then_new_, is_above);
}

void EditDialog::AddDate() {
  form_->Add(Text("Date"), date_, Named("_Date_Field").constData(), kDateFieldWidth);
}

void EditDialog::AddMarksAndNotes() {
  for (QCheckBox* box : {cleared_, tax_}) box->setAccessibleName(box->text());
  QHBoxLayout* row = form_->AddRow({}, {cleared_, tax_});
  row->setSpacing(kWideGap);
  form_->Add(Text("Notes"), notes_, Named("_Notes_Field").constData());
}

QComboBox* EditDialog::AddPopUp(const QString& label, const char* control, int width) {
  auto* pop_up = new QComboBox(form_);
  form_->Add(label, pop_up, Named(control).constData(), width);
  connect(pop_up, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  return pop_up;
}

// --- What was typed

bool EditDialog::EndEditing() {
  amount_->AddUp();
  description_->TakeCompletion();
  Read();
  return true;
}

void EditDialog::OK() {
  Read();
  shown_problem_.reset();
  parts_.sheet.OK();
}

void EditDialog::Cancel() {
  parts_.sheet.Cancel();
}

std::optional<double> EditDialog::TypedAmount() const {
  if (amount_->text().trimmed().isEmpty()) return 0.0;
  return amount_->Amount();
}

std::optional<DateNumber> EditDialog::TypedDay() const {
  return date_->Day();
}

std::string EditDialog::TypedDescription() const {
  return ToUtf8(description_->text());
}

bool EditDialog::IsCleared() const {
  return cleared_->isChecked();
}

bool EditDialog::IsTax() const {
  return tax_->isChecked();
}

std::string EditDialog::TypedNotes() const {
  return notes_->document()->isModified() ? ToUtf8(notes_->toPlainText()) : stored_notes_;
}

// --- What is shown

bool EditDialog::TakeEntry(bool is_new, const std::optional<DateNumber>& day) {
  const auto& entry = parts_.entries.Edited().entry;
  if (entry == entry_) return false;
  entry_ = entry;
  {
    // What stood there for another entry is no way to write the same day or amount of this one.
    const QScopedValueRollback<bool> showing(is_showing_, true);
    amount_->clear();
    if (day) date_->SetDay(*day);
  }
  const std::string written = day ? FormatDate(DateNumberToNSCalendarDate(*day),
                                               RegisterDateFormat(parts_.desk.preferences()))
                                  : "";
  setWindowTitle(is_new ? parts_.new_title : parts_.edit_title(written));
  return true;
}

void EditDialog::FocusFirst(SheetField first, QWidget* to_from, QWidget* type) {
  QWidget* field = date_;
  switch (first) {
    case SheetField::Date:
      break;
    case SheetField::Amount:
      field = amount_;
      break;
    case SheetField::Description:
      field = description_;
      break;
    case SheetField::ToFrom:
      field = to_from;
      break;
    case SheetField::Type:
      field = type;
      break;
  }
  if (!field->isEnabled()) field = date_;
  field->setFocus();
  if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
}

void EditDialog::ShowRefused(const std::optional<Problem>& problem) {
  const bool is_at_field = form_->ShowProblem(problem);
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(problem)));
  if (is_at_field) GrowFor(form_->FieldWithProblem());
  if (is_at_field && problem != shown_problem_) form_->FieldWithProblem()->setFocus();
  shown_problem_ = problem;
}

void EditDialog::ShowText(QLineEdit* field, const std::string& text) {
  if (ToUtf8(field->text()) != text) field->setText(ToQString(text));
}

void EditDialog::ShowMark(QCheckBox* box, bool is_set) {
  box->setChecked(is_set);
}

void EditDialog::ShowDay(const std::optional<DateNumber>& day) {
  if (day && date_->Day() != day) date_->SetDay(*day);
  ShowWeekday();
}

void EditDialog::ShowAmount(const std::optional<double>& amount) {
  if (!amount || TypedAmount() == amount) return;
  amount_->setText(*amount == 0.0 ? QString() : TextOfAmount(*amount));
}

void EditDialog::ShowNotes(const std::string& notes) {
  if (TypedNotes() == notes) return;
  stored_notes_ = notes;
  notes_->setPlainText(ToQString(notes));
}

void EditDialog::ShowWeekday() {
  const auto day = date_->Day();
  form_->SetNote(date_, day ? ToQString(FormatDate(DateNumberToNSCalendarDate(*day), "%A"))
                            : QStringLiteral(" "));
}

}  // namespace tallyfold::desktop
