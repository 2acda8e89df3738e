#include "desktop/sheets/entry_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStringList>
#include <QVBoxLayout>

#include "app/desk.h"
#include "app/shell/text_editing.h"
#include "desktop/fields/amount_field.h"
#include "desktop/look/assistive.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/split_table.h"
#include "desktop/sheets/suggestion_line.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kNarrowForm = 440;
constexpr int kWideForm = 380;
constexpr int kTypeWidth = 200;

QPushButton* PlainButton(const QString& title, const QByteArray& name, QWidget* parent) {
  auto* button = new QPushButton(WithoutMnemonics(title), parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  return button;
}

}  // namespace

EntryDialog::EntryDialog(const Parts& parts, EntrySheet& sheet, TextEditing& editing,
                         QWidget* window)
    : EditDialog(parts, window), sheet_(sheet), editing_(editing) {
  MakeForm();
  MakeSplit();
  auto* columns = new QHBoxLayout;
  columns->setSpacing(kColumnGap);
  columns->addWidget(&Fields(), 1);
  columns->addWidget(split_panel_, 1);
  Body().addLayout(columns, 1);
  description_->installEventFilter(this);
  SetWide(false);
}

void EntryDialog::MakeForm() {
  AddDate();
  if (IsDebit()) MakeNumberRow();
  type_ = AddPopUp(Text("Type"), "_Type_PopUp", kTypeWidth);

  QWidget* form = &Fields();
  split_button_ = PlainButton(Text("Split..."), Named("_Split_Button"), form);
  clear_all_ = PlainButton(Text("Clear All"), Named("_ClearSplit_Button"), form);
  amount_note_ = Form::MakeNote(form);
  amount_note_->setText(Text("the total of the split"));
  // Beside both buttons it has room for two short lines.
  amount_note_->setWordWrap(true);
  QHBoxLayout* row = Fields().AddRow(Text("Amount"), {amount_, split_button_, clear_all_});
  row->insertWidget(1, amount_note_);
  connect(split_button_, &QPushButton::clicked, this, [this] {
    SetWide(true);
    Fit();
    split_->setFocus();
  });
  connect(clear_all_, &QPushButton::clicked, this, [this] {
    sheet_.ClearSplit();
    split_->SelectFirst();
    // The button is gone.
    amount_->setFocus();
  });

  Fields().Add(Text("Description"), description_, Named("_Description_Field").constData());
  suggestion_ = new SuggestionLine(form);
  suggestion_->setObjectName(QLatin1String(Named("_Suggestion_Button")));
  Fields().Add({}, suggestion_, Named("_Suggestion_Button").constData());
  connect(suggestion_, &QPushButton::clicked, this, [this] {
    Read();
    sheet_.TakeSuggestion();
  });
  to_from_ = new LDGRComboBoxCell(form);
  Fields().Add(IsDebit() ? Text("To") : Text("From"), to_from_, Named("_ToFrom_Field").constData());
  connect(to_from_, &QLineEdit::textEdited, this, [this] { Read(); });
  connect(description_, &LDGRComboBoxCell::Completed, this, [this] { EndDescription(); });
  AddMarksAndNotes();
}

void EntryDialog::MakeNumberRow() {
  QWidget* form = &Fields();
  check_ = new QCheckBox(Text("Check"), form);
  check_->setObjectName(QLatin1String(Named("_CheckNumber_Button")));
  number_ = new QLineEdit(form);
  number_->setObjectName(QLatin1String(Named("_CheckNumber_Field")));
  number_->setAccessibleName(Text("Check number"));
  number_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  number_->setFixedWidth(kNumberFieldWidth);
  next_ = PlainButton(Text("Next"), Named("_NextNumber_Button"), form);
  Fields().AddRow(Text("Number"), {check_, number_, next_});
  connect(check_, &QCheckBox::toggled, this, [this] {
    if (IsShowing()) return;
    Read();
    Entries().CheckNumber_Button();
  });
  connect(number_, &QLineEdit::textEdited, this, [this] { Read(); });
  connect(next_, &QPushButton::clicked, this, [this] {
    Read();
    Typed typed = sheet_.State().typed;
    typed.check_number.clear();
    sheet_.Read(std::move(typed));
    Entries().CheckNumber_Button();
  });
}

void EntryDialog::MakeSplit() {
  split_panel_ = new QWidget(this);
  auto* column = new QVBoxLayout(split_panel_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);

  auto* image = new QLabel(split_panel_);
  image->setPixmap(PixmapNamed(QLatin1String("split"), kIconSize, devicePixelRatioF(),
                               ColorsOf(palette())[Role::Dim]));
  auto* title = new QLabel(Text("Split"), split_panel_);
  title->setTextFormat(Qt::PlainText);
  title->setFont(DemiBoldFont(font()));
  auto* clear = PlainButton(Text("Clear"), Named("_Split_Clear_Button"), split_panel_);
  auto* head = new QHBoxLayout;
  head->addWidget(image);
  head->addWidget(title);
  head->addStretch(1);
  head->addWidget(clear);
  column->addLayout(head);

  split_ = new SplitTable(split_panel_);
  split_->setObjectName(QLatin1String(Named("_Split_Table")));
  split_->setAccessibleName(Text("Split"));
  split_->SetToTitle(IsDebit() ? Text("To") : Text("From"));
  title->setBuddy(split_);
  column->addWidget(split_);

  fill_ = PlainButton(Text("Fill with the Rest"), Named("_Split_Rest_Button"), split_panel_);
  target_ = Form::MakeNote(split_panel_);
  target_->setObjectName(QLatin1String(Named("_Split_Target_Label")));
  auto* caption = Form::MakeNote(split_panel_);
  caption->setFont(font());
  caption->setText(Text("Total"));
  total_ = new QLabel(split_panel_);
  total_->setObjectName(QLatin1String(Named("_Split_Total_Field")));
  total_->setTextFormat(Qt::PlainText);
  total_->setFont(DemiBoldFont(LargerFont(font(), kStatusFigurePoints)));
  auto* foot = new QHBoxLayout;
  foot->addWidget(fill_);
  foot->addWidget(target_);
  foot->addStretch(1);
  foot->addWidget(caption);
  foot->addWidget(total_);
  foot->setContentsMargins(0, 0, kWideGap, 0);
  column->addLayout(foot);
  column->addStretch(1);

  connect(clear, &QPushButton::clicked, this, [this] {
    sheet_.Split_ClearSplit();
    split_->SelectFirst();
  });
  connect(fill_, &QPushButton::clicked, this, [this] {
    Read();
    sheet_.Split_FillWithRest();
  });
  connect(split_, &SplitTable::Edited, this, [this] {
    if (IsShowing()) return;
    Read();
    editing_.textDidEndEditing(IsDebit() ? &text_field::kDebitSplit : &text_field::kDepositSplit);
  });
}

void EntryDialog::showEvent(QShowEvent* event) {
  EditDialog::showEvent(event);
  ShowSuggestion(sheet_.State());
}

bool EntryDialog::eventFilter(QObject* object, QEvent* event) {
  if (object == description_ && event->type() == QEvent::FocusIn) {
    editing_.textDidBeginEditing(&text_field::kDescription);
    ShowSuggestion(sheet_.State());
  } else if (object == description_ && event->type() == QEvent::KeyRelease) {
    EndDescription();
  }
  return EditDialog::eventFilter(object, event);
}

void EntryDialog::EndDescription() {
  // Offered before the field is left, so that the key that takes it can be pressed there.
  editing_.textDidEndEditing(&text_field::kDescription);
}

void EntryDialog::Read() {
  if (IsShowing() || !sheet_.State().is_open) return;
  Typed typed = sheet_.State().typed;
  ReadShared(typed);
  typed.type = type_->currentIndex();
  typed.to_from = ToUtf8(to_from_->text());
  if (check_ != nullptr) {
    typed.check = check_->isChecked();
    typed.check_number = ToUtf8(number_->text());
  }
  typed.split = split_->Rows();
  typed.selected_split_row = split_->SelectedRow();
  sheet_.Read(std::move(typed));
}

bool EntryDialog::EndEditing() {
  split_->EndCellEditing();
  to_from_->TakeCompletion();
  return EditDialog::EndEditing();
}

void EntryDialog::SetWide(bool is_wide) {
  is_wide_ = is_wide;
  split_panel_->setVisible(is_wide);
  Fields().SetLeastWidth(is_wide ? kWideForm : kNarrowForm);
  split_button_->setVisible(!is_wide);
  PutThenNew(!is_wide);
}

void EntryDialog::Begin(const EntrySheetState& state) {
  description_->SetTexts(state.descriptions);
  to_from_->SetTexts(state.to_froms);
  split_->SetCompletions(state.descriptions, state.to_froms);
  split_->setCurrentIndex({});
  const bool was_wide = is_wide_;
  SetWide(sheet_.IsSplit());
  if (isVisible() && was_wide != is_wide_) Fit();
  FocusFirst(state.first_field, to_from_, type_);
}

void EntryDialog::ShowState() {
  const EntrySheetState& state = sheet_.State();
  if (!state.is_open) return;
  const bool begins = TakeEntry(state.is_new, state.typed.date);
  {
    const QScopedValueRollback<bool> showing(IsShowing(), true);
    const Typed& typed = state.typed;
    ShowItems(*type_, state.type_items, typed.type);
    amount_->SetAside(!state.amount_is_enabled);
    ShowShared(typed);
    ShowText(to_from_, typed.to_from);
    if (check_ != nullptr) {
      ShowMark(check_, typed.check);
      ShowText(number_, typed.check_number);
      number_->setEnabled(state.check_number_is_enabled);
      next_->setEnabled(state.check_number_is_enabled);
    }
    split_->ShowRows(typed.split, state.problem);
    to_from_->setEnabled(state.to_from_is_enabled);
    if (begins) Begin(state);
    const bool has_split = !state.amount_is_enabled;
    amount_note_->setVisible(has_split);
    clear_all_->setVisible(has_split);
    ShowSuggestion(state);
    ShowTotal(state);
  }
  ShowRefused(state.problem);
  if (state.problem && state.problem->row >= 0) split_->SelectAmount(state.problem->row);
}

void EntryDialog::ShowSuggestion(const EntrySheetState& state) {
  QStringList parts;
  if (state.suggestion) {
    const EntrySuggestion& offered = *state.suggestion;
    const auto type = IndexOfItemTagged(state.type_items, offered.type);
    if (offered.type >= 0 && type != kNoItem) {
      parts.append(ToQString(state.type_items[static_cast<std::size_t>(type)].title));
    }
    if (!offered.to_from.empty()) parts.append(ToQString(offered.to_from));
    if (offered.amount != 0.0) {
      parts.append(ToQString(RegisterAmountText(offered.amount, TheDesk().preferences())));
    }
  }
  suggestion_->Offer(parts.join(QLatin1String(", ")));
  // Its room is there while it may be wanted; also while the sheet is measured.
  suggestion_->setVisible(!isVisible() || description_->hasFocus() || !parts.isEmpty());
}

void EntryDialog::ShowTotal(const EntrySheetState& state) {
  const auto& preferences = TheDesk().preferences();
  const auto written = [&preferences](double amount) {
    return RegisterAmountText(amount, preferences);
  };
  total_->setText(ToQString(written(state.split_total)));
  NameFigure(*total_, Text("Total"), total_->text());
  fill_->setEnabled(state.split_rest != 0.0);
  target_->setText(state.split_target
                       ? ToQString(Message("{1} of {2} left", {written(state.split_rest),
                                                               written(*state.split_target)}))
                       : QString());
}

}  // namespace tallyfold::desktop
