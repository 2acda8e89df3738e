#include "desktop/sheets/summary_options_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/desk.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

using State = AccountSummarySheetState;

constexpr int kSummaryOptionsWidth = 1080;
constexpr int kSummaryFormWidth = 440 - 2 * kSheetMargin;
constexpr int kSummaryPopUpWidth = 200;
constexpr int kFilterTextWidth = 152;
constexpr int kLeastResultHeight = 320;
constexpr int kResultDelay = 150;  // milliseconds

}  // namespace

SummaryOptionsSheet::SummaryOptionsSheet(Parts parts, QWidget* window)
    : SheetDialog(window, Text("Summary Options")),
      parts_(std::move(parts)),
      form_(new Form(this)),
      name_(new QLineEdit(form_)),
      start_(new DateField(form_)),
      end_(new DateField(form_)),
      filter_text_(new QLineEdit(form_)) {
  setObjectName(QLatin1String("accountSummarySheet"));
  SetWantedWidth(kSummaryOptionsWidth);
  MakeForm();
  area_ = new QScrollArea(this);
  area_->setObjectName(QLatin1String("accountSummarySheet_Result"));
  // Its tables take the keys.
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setAccessibleName(Text("Result"));
  area_->setWidgetResizable(true);
  area_->setMinimumHeight(kLeastResultHeight);
  result_ = parts_.make_page(area_);
  area_->setWidget(result_);
  area_->setFrameShape(QFrame::NoFrame);
  UseWholeWidth();
  auto* left = new QVBoxLayout;
  left->setContentsMargins(kSheetMargin, kSheetMargin, kSheetMargin, kSheetMargin);
  left->addWidget(form_);
  left->addStretch(1);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(0);
  columns->addLayout(left);
  // The rule before the result.
  columns->addSpacing(1);
  columns->addWidget(area_, 1);
  Body().addLayout(columns);
  connect(AddButton("accountSummarySheet_Cancel_Button", Text("Cancel")), &QPushButton::clicked,
          this, [this] { Cancel(); });
  connect(AddButton("accountSummarySheet_OK_Button", Text("OK"), true), &QPushButton::clicked, this,
          [this] {
            Read();
            if (parts_.sheet.OK()) return;
            ShowState();
            if (form_->FieldWithProblem() != nullptr) form_->FieldWithProblem()->setFocus();
          });
  result_timer_.setSingleShot(true);
  result_timer_.setTimerType(Qt::PreciseTimer);
  connect(&result_timer_, &QTimer::timeout, this, [this] { ShowResult(); });
  name_->setFocus();
}

void SummaryOptionsSheet::MakeForm() {
  form_->SetLeastWidth(kSummaryFormWidth);
  form_->Add(Text("Name"), name_, "accountSummarySheet_Name_Field");
  form_->AddRule();
  AddChoice(Text("Dates"), "accountSummarySheet_DateRange_PopUp", &Typed::date_range,
            &State::date_ranges);
  start_->setObjectName(QLatin1String("accountSummarySheet_Start_Field"));
  end_->setObjectName(QLatin1String("accountSummarySheet_End_Field"));
  end_->setAccessibleName(Text("To"));
  auto* to = Form::MakeNote(form_);
  to->setFont(font());
  to->setText(Text("to"));
  to->setBuddy(end_);
  form_->AddRow(Text("From"), {start_, to, end_});
  for (DateField* field : {start_, end_}) {
    field->setFixedWidth(kDateFieldWidth);
    field->SetFormat(RegisterDateFormat(parts_.desk.preferences()));
    connect(field, &DateField::DayChanged, this, [this] { Read(); });
  }
  AddChoice(Text("Periods"), "accountSummarySheet_PeriodStyle_PopUp", &Typed::period_style,
            &State::period_styles);
  AddChoice(Text("Show"), "accountSummarySheet_ShowStyle_PopUp", &Typed::show_style,
            &State::show_styles);
  form_->AddRule();
  form_->AddRow(
      Text("Entries"),
      {MakeMark(Text("Debits"), "accountSummarySheet_Debits_CheckBox", &Typed::show_debits),
       MakeMark(Text("Deposits"), "accountSummarySheet_Deposits_CheckBox", &Typed::show_deposits),
       MakeMark(Text("Transfers"), "accountSummarySheet_Transfers_CheckBox",
                &Typed::show_transfers)});
  AddChoice(Text("Resolved"), "accountSummarySheet_Resolved_PopUp", &Typed::resolved,
            &State::resolved);
  AddChoice(Text("Tax-deductible"), "accountSummarySheet_TaxDeductible_PopUp",
            &Typed::tax_deductible, &State::tax_deductible);
  AddChoice(Text("Checks"), "accountSummarySheet_Checks_PopUp", &Typed::checks, &State::checks);
  form_->AddRow(Text("Only with"),
                {MakeMark(Text("Filter"), "accountSummarySheet_Filter_CheckBox", &Typed::filter)});
  filter_type_ = MakeChoice(&Typed::filter_type, &State::filter_types);
  filter_type_->setObjectName(QLatin1String("accountSummarySheet_FilterType_PopUp"));
  filter_type_->setAccessibleName(Text("Text in"));
  filter_text_->setObjectName(QLatin1String("accountSummarySheet_FilterText_Field"));
  filter_text_->setAccessibleName(Text("Text"));
  filter_text_->setPlaceholderText(Text("Text"));
  filter_text_->setFixedWidth(kFilterTextWidth);
  form_->AddRow({}, {filter_type_, filter_text_});
  form_->AddRule();
  form_->AddRow(Text("Subtotals"),
                {MakeMark(Text("Types"), "accountSummarySheet_SubtotalTypes_CheckBox",
                          &Typed::subtotal_types),
                 MakeMark(Text("Descriptions"), "accountSummarySheet_SubtotalDescriptions_CheckBox",
                          &Typed::subtotal_descriptions),
                 MakeMark(Text("To/From"), "accountSummarySheet_SubtotalToFroms_CheckBox",
                          &Typed::subtotal_to_froms)});
  for (QLineEdit* field : {name_, filter_text_}) {
    connect(field, &QLineEdit::textEdited, this, [this] { Read(); });
  }
}

void SummaryOptionsSheet::AddChoice(const QString& label, const char* name,
                                    std::int32_t Typed::*number,
                                    std::vector<PopUpItem> State::*items) {
  form_->Add(label, MakeChoice(number, items), name, kSummaryPopUpWidth);
}

QComboBox* SummaryOptionsSheet::MakeChoice(std::int32_t Typed::*number,
                                           std::vector<PopUpItem> State::*items) {
  auto* pop_up = new QComboBox(form_);
  choices_.push_back({pop_up, number, items});
  connect(pop_up, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  return pop_up;
}

QCheckBox* SummaryOptionsSheet::MakeMark(const QString& title, const char* name,
                                         bool Typed::*is_set) {
  auto* box = new QCheckBox(title, form_);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(box->text());
  marks_.push_back({box, is_set});
  connect(box, &QCheckBox::toggled, this, [this] { Read(); });
  return box;
}

void SummaryOptionsSheet::Read() {
  // What no pop-up offers stays as it is stored.
  Typed typed = parts_.sheet.State().typed;
  typed.name = ToUtf8(name_->text());
  typed.filter_text = ToUtf8(filter_text_->text());
  for (const Choice& each : choices_) {
    if (each.pop_up->currentIndex() >= 0) typed.*each.number = each.pop_up->currentData().toInt();
  }
  for (const Mark& each : marks_) typed.*each.is_set = each.box->isChecked();
  if (parts_.sheet.State().days_are_enabled) {
    typed.start = start_->Day();
    typed.end = end_->Day();
  }
  is_stale_ = true;
  parts_.sheet.Read(std::move(typed));
  ShowState();
}

void SummaryOptionsSheet::ShowState() {
  const State& state = parts_.sheet.State();
  if (!state.is_open) return;
  const Typed& typed = state.typed;
  const auto show_text = [](QLineEdit* field, const std::string& text) {
    if (field->text() != ToQString(text)) field->setText(ToQString(text));
  };
  show_text(name_, typed.name);
  show_text(filter_text_, typed.filter_text);
  for (const Choice& each : choices_) {
    const auto& items = state.*each.items;
    ShowItems(*each.pop_up, items, IndexOfItemTagged(items, typed.*each.number));
  }
  for (const Mark& each : marks_) {
    const QSignalBlocker blocker(each.box);
    each.box->setChecked(typed.*each.is_set);
  }
  const auto show_day = [](DateField* field, const std::optional<DateNumber>& day) {
    if (day && field->Day() != day) field->SetDay(*day);
  };
  show_day(start_, typed.start);
  show_day(end_, typed.end);
  for (DateField* field : {start_, end_}) field->setEnabled(state.days_are_enabled);
  filter_text_->setEnabled(typed.filter);
  filter_type_->setEnabled(typed.filter);
  const bool is_at_field = form_->ShowProblem(state.problem);
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(state.problem)));
  if (is_stale_) result_timer_.start(kResultDelay);
}

void SummaryOptionsSheet::ShowResult() {
  if (!parts_.sheet.State().is_open) return;
  is_stale_ = false;
  parts_.show_page(result_, parts_.sheet.Result());
  // What is new in the result counts once it is in sight.
  QTimer::singleShot(0, this, [this] {
    const int whole =
        result_->minimumSizeHint().width() + kScrollBarExtent + 2 * area_->frameWidth();
    const int room = screen()->availableGeometry().width() - (width() - area_->width());
    area_->setMinimumWidth(std::min(whole, std::max(room, area_->width())));
    // Long titles make it wider than was wanted.
    GrowFor(area_);
  });
}

void SummaryOptionsSheet::Painted() {
  ShowResult();
}

void SummaryOptionsSheet::paintEvent(QPaintEvent* event) {
  SheetDialog::paintEvent(event);
  QPainter painter(this);
  const QRect result(area_->mapTo(this, QPoint()), area_->size());
  const int x = layoutDirection() == Qt::LeftToRight ? result.left() - 1 : result.right() + 1;
  DrawRuleBefore(painter, QRect(x, result.top(), 1, result.height()),
                 ColorsOf(palette())[Role::Rule]);
}

void SummaryOptionsSheet::Cancel() {
  parts_.sheet.Cancel();
}

}  // namespace tallyfold::desktop
