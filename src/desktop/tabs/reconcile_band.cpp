#include "desktop/tabs/reconcile_band.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <string>

#include "app/desk.h"
#include "app/views/reconcile_tab.h"
#include "desktop/fields/amount_field.h"
#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kFieldWidth = 150;
constexpr int kSideMargin = 12;
constexpr int kTickSize = 24;
constexpr int kHintSize = 20;
// A narrower band goes without the notes below its figures.
constexpr int kRoomForNotes = 700;
// Each figure has a caption above it and a note below.
constexpr int kRowsOfFigure = 3;

FigureLabel* Note(QWidget* parent, const char* name) {
  auto* label = new FigureLabel(parent, name);
  label->setFont(SmallFont(parent->font()));
  label->setForegroundRole(QPalette::PlaceholderText);
  // Gives way to the figures.
  label->setMinimumWidth(kColumnGap);
  return label;
}

QLabel* BandCaption(QWidget* parent, std::string_view key) {
  auto* label = new FigureLabel(parent);
  label->setFont(MediumFont(SmallFont(parent->font())));
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setText(Text(key));
  return label;
}

QLabel* Sign(QWidget* parent, const QString& sign) {
  auto* label = new FigureLabel(parent);
  label->setText(sign);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setFont(LargerFont(parent->font(), kSheetHeadingPoints));
  return label;
}

}  // namespace

ReconcileBand::ReconcileBand(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      figures_(new QWidget(this)),
      grid_(new QGridLayout(figures_)),
      minus_(Sign(this, QStringLiteral("\u2212"))),
      equals_(Sign(this, QLatin1String("="))),
      statement_caption_(BandCaption(this, "Statement balance")),
      resolved_caption_(BandCaption(this, "Resolved")),
      difference_caption_(BandCaption(this, "Difference")),
      field_(new AmountField(this)),
      bank_note_(Note(this, "bank_Note")),
      resolved_(new FigureLabel(this, "resolvedBalance_Field")),
      resolved_note_(Note(this, "resolved_Note")),
      tick_(new QLabel(this)),
      difference_row_(new QHBoxLayout),
      difference_(new FigureLabel(this, "difference_Field")),
      difference_note_(Note(this, "difference_Note")),
      explanation_(new QWidget(this)),
      explanation_image_(new QLabel(explanation_)),
      sentence_(new FigureLabel(explanation_, "explanation_Label")),
      named_(new FigureLabel(explanation_, "explanationEntry_Label")),
      select_(new QPushButton(explanation_)) {
  field_->setObjectName(QLatin1String("statementBalance_Field"));
  field_->setFixedWidth(kFieldWidth);
  // A file that is dropped is meant for the window.
  field_->setAcceptDrops(false);
  field_->setAlignment(Qt::AlignRight);
  field_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  field_->setAccessibleName(Text("Statement balance"));
  const QFont figures = DemiBoldFont(LargerFont(font(), kHeadlinePoints));
  resolved_->setFont(figures);
  difference_->setFont(figures);

  figures_->setBackgroundRole(QPalette::Base);
  figures_->setAutoFillBackground(true);
  grid_->setContentsMargins(kSideMargin, kWideGap + 2, kSideMargin, kWideGap + 2);
  grid_->setHorizontalSpacing(kColumnGap);
  grid_->setVerticalSpacing(kTightGap);
  difference_row_->setSpacing(kGap);
  difference_row_->addWidget(tick_);
  difference_row_->addWidget(difference_, 1);
  statement_caption_->setBuddy(field_);
  grid_->addWidget(statement_caption_, 0, 0);
  grid_->addWidget(field_, 1, 0, Qt::AlignLeading);
  bank_note_->setText(Text("As printed by the bank"));
  grid_->addWidget(bank_note_, 2, 0);
  grid_->addWidget(minus_, 1, 1);
  grid_->addWidget(resolved_caption_, 0, 2);
  grid_->addWidget(resolved_, 1, 2);
  grid_->addWidget(resolved_note_, 2, 2);
  grid_->setColumnStretch(5, 1);
  PlaceDifference();

  explanation_->setFixedHeight(kBarHeight);
  auto* row = new QHBoxLayout(explanation_);
  row->setContentsMargins(kSideMargin, 0, kSideMargin, 0);
  row->setSpacing(kGap);
  row->addWidget(explanation_image_);
  sentence_->setFont(DemiBoldFont(font()));
  sentence_->setMinimumWidth(kColumnGap);
  row->addWidget(sentence_);
  named_->setForegroundRole(QPalette::PlaceholderText);
  named_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  named_->setMinimumWidth(1);
  row->addWidget(named_, 1);
  select_->setObjectName(QLatin1String("explanation_Select_Button"));
  row->addWidget(select_);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(figures_);
  column->addWidget(explanation_);

  connect(field_, &QLineEdit::editingFinished, this, [this] { EndEditing(); });
  connect(field_, &QLineEdit::textEdited, this, [this] { SetProblem(field_, false); });
  connect(select_, &QPushButton::clicked, this, [this] { SelectEntries(); });
}

void ReconcileBand::EndEditing() {
  if (!field_->isModified()) return;
  const auto amount = field_->Amount();
  const bool is_taken = amount && parts_.tab.StatementBalance_EndEditing(*amount);
  SetProblem(field_, !is_taken);
  field_->setToolTip(is_taken ? QString() : Text("This is not an amount."));
  if (!is_taken) return;
  field_->setModified(false);
  Show();
}

void ReconcileBand::Show() {
  is_behind_ = !isVisible();
  if (!is_behind_) ShowState();
}

void ReconcileBand::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (is_behind_) Show();
}

void ReconcileBand::ShowState() {
  const ReconcileTabState& state = parts_.tab.State();
  const LDGRPreferences& preferences = parts_.desk.preferences();
  const Reconciliation& figures = state.figures;
  field_->setEnabled(state.is_enabled);
  // What is being typed stays, but not in front of another account.
  const std::shared_ptr<const LDGRAccount> account = parts_.desk.SelectedAccount();
  if (account_.lock() != account) field_->setModified(false);
  account_ = account;
  if (!field_->isModified()) {
    const QString text = state.is_enabled ? TextOfAmount(figures.statement_balance) : QString();
    if (field_->text() != text) field_->setText(text);
    field_->setModified(false);
    SetProblem(field_, false);
  }
  const auto amount = [&preferences](double value) {
    return RegisterAmountText(value, preferences);
  };
  const bool is_balanced = state.is_enabled && figures.IsBalanced();
  resolved_->setText(state.is_enabled ? ToQString(amount(figures.resolved_balance)) : QString());
  NameFigure(*resolved_, Text("Resolved"), resolved_->text());
  const auto count = [](std::size_t number) { return std::to_string(number); };
  resolved_note_->setText(
      state.is_enabled
          ? ToQString(Message(
                "{1}, {2}",
                {Message(Plural("{1} debit {2}", "{1} debits {2}", figures.resolved_debit_count),
                         {count(figures.resolved_debit_count), amount(figures.resolved_debits)}),
                 Message(
                     Plural("{1} deposit {2}", "{1} deposits {2}", figures.resolved_deposit_count),
                     {count(figures.resolved_deposit_count), amount(figures.resolved_deposits)})}))
          : QString());
  difference_->setText(ToQString(state.difference));
  NameFigure(*difference_, Text("Difference"), difference_->text());
  difference_note_->setText(
      state.is_enabled ? ToQString(Message("{1} unresolved {2}", {count(figures.unresolved_count),
                                                                  amount(figures.unresolved_sum)}))
                       : QString());
  const Colors& colors = ColorsOf(palette());
  const QColor ink = colors[is_balanced ? Role::Good : Role::Problem];
  SetTextInk(*difference_, ink);
  tick_->setVisible(is_balanced);
  if (is_balanced) {
    tick_->setPixmap(PixmapNamed(QLatin1String("tick"), kTickSize, devicePixelRatioF(), ink));
  }
  Fit();
  ShowExplanation();
}

void ReconcileBand::ShowExplanation() {
  const ReconcileTabState& state = parts_.tab.State();
  explanation_->setVisible(state.explanation.has_value());
  if (!state.explanation) return;
  const Colors& colors = ColorsOf(palette());
  QPalette ground;
  ground.setColor(QPalette::Window, colors[Role::HintFill]);
  explanation_->setPalette(ground);
  explanation_->setAutoFillBackground(true);
  explanation_image_->setPixmap(
      PixmapNamed(QLatin1String("hint"), kHintSize, devicePixelRatioF(), colors[Role::Accent]));
  sentence_->setText(ToQString(state.explanation_text));
  sentence_->setToolTip(PlainToolTip(sentence_->text()));
  const EntryList& entries = state.explanation->entries;
  select_->setVisible(!entries.empty());
  select_->setText(Text(entries.size() > 1 ? "Select Them" : "Select It"));
  named_->setText(QString());
  if (entries.size() != 1) return;
  const LDGRAccountEntry& entry = *entries.front();
  const LDGRPreferences& preferences = parts_.desk.preferences();
  const std::string format = RegisterDateFormat(preferences);
  QStringList words{ToQString(DayCell(entry.GetDate(), {format, preferences}).text)};
  for (const std::string& text : {entry.GetDescription(), entry.GetToFrom()}) {
    if (!text.empty()) words.append(ToQString(text).simplified());
  }
  words.append(ToQString(RegisterAmountText(entry.GetAmount(), preferences)));
  named_->setText(words.join(QLatin1String("  ")));
  named_->setToolTip(PlainToolTip(named_->text()));
}

void ReconcileBand::SelectEntries() {
  const auto& explanation = parts_.tab.State().explanation;
  if (!explanation || explanation->entries.empty()) return;
  emit EntriesWanted(EntryList(explanation->entries));
}

void ReconcileBand::PlaceDifference() {
  // In a line with the others, or in one of its own below the one it comes from.
  const int row = is_stacked_ ? kRowsOfFigure : 0;
  const int column = is_stacked_ ? 2 : 4;
  grid_->addWidget(equals_, row + 1, column - 1);
  grid_->addWidget(difference_caption_, row, column);
  grid_->addLayout(difference_row_, row + 1, column);
  grid_->addWidget(difference_note_, row + 2, column);
  for (const int figures : {1, kRowsOfFigure + 1}) {
    grid_->setRowMinimumHeight(figures,
                               figures == 1 || is_stacked_ ? ControlHeight(fontMetrics()) + 2 : 0);
  }
}

ReconcileBand::Widths ReconcileBand::WidthsOfFigures() const {
  const auto width = [](const QWidget* widget) { return widget->sizeHint().width(); };
  const int tick = tick_->isHidden() ? 0 : kTickSize + kGap;
  return {std::max(kFieldWidth, width(statement_caption_)) + 2 * kSideMargin + kColumnGap +
              width(minus_) + kColumnGap,
          std::max(width(resolved_), width(resolved_caption_)),
          std::max(width(difference_) + tick, width(difference_caption_)),
          kColumnGap + width(equals_) + kColumnGap};
}

void ReconcileBand::Fit() {
  const bool has_room = width() >= kRoomForNotes;
  for (FigureLabel* note : {bank_note_, resolved_note_, difference_note_}) {
    note->setVisible(has_room);
  }
  const Widths widths = WidthsOfFigures();
  const bool is_stacked =
      width() < widths.statement + widths.resolved + widths.equals + widths.difference;
  if (is_stacked == is_stacked_) return;
  is_stacked_ = is_stacked;
  for (QWidget* moved :
       std::initializer_list<QWidget*>{equals_, difference_caption_, difference_note_}) {
    grid_->removeWidget(moved);
  }
  grid_->removeItem(difference_row_);
  PlaceDifference();
  layout()->invalidate();
  updateGeometry();
}

QSize ReconcileBand::minimumSizeHint() const {
  const Widths widths = WidthsOfFigures();
  return {widths.statement + std::max(widths.resolved, widths.difference),
          QWidget::minimumSizeHint().height()};
}

void ReconcileBand::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // What is laid out otherwise in the middle of being laid out stays as it was.
  QTimer::singleShot(0, this, &ReconcileBand::Fit);
}

void ReconcileBand::FocusField() {
  field_->setFocus(Qt::OtherFocusReason);
}

}  // namespace tallyfold::desktop
