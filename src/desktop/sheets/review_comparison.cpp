#include "desktop/sheets/review_comparison.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "app/exchange/qif_import_table_data.h"
#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/rule_line.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "exchange/qif_duplicates.h"
#include "model/date_number.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold::desktop {
namespace {

using Reason = QifMatch::Reason;

constexpr int kWidestMatch = 260;

struct Shown {
  std::string_view column;
  std::string_view title;  // English key
};

constexpr std::array<Shown, 4> kShown = {{{"date", "Date"},
                                          {"description", "Description"},
                                          {"toFrom", "To/From"},
                                          {"amount", "Amount"}}};

std::string ReasonText(const LDGRQIFImportEntry& entry, const QifMatch& match) {
  switch (match.reason) {
    case Reason::CheckNumber:
      return LocalizedText("The same amount, day and check number.");
    case Reason::ToFrom:
      return LocalizedText("The same amount, day and to/from.");
    case Reason::Description:
      return LocalizedText("The same amount, day and description.");
    case Reason::AmountAndDate:
      return LocalizedText("The same amount and day.");
    case Reason::NearDate:
      break;
  }
  const auto days = static_cast<std::size_t>(
      std::llabs(DayCountOf(entry.GetDate()) - DayCountOf(match.entry->GetDate())));
  return Message(
      Plural("The same amount, one day apart.", "The same amount, {1} days apart.", days),
      {std::to_string(days)});
}

}  // namespace

// A text of one of the two entries, on a ground of its own where they differ.
class ReviewComparison::Field final : public QWidget {
 public:
  Field(bool says_so, QWidget* parent) : QWidget(parent), says_so_(says_so) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }
  void Show(const QString& text, bool differs) {
    text_ = text;
    differs_ = differs;
    setAccessibleName(differs ? ToQString(Message("{1}, differs", {ToUtf8(text)})) : text);
    update();
  }
  [[nodiscard]] QSize sizeHint() const override {
    return {kNumberless, RowHeight(QFontMetrics(font()))};
  }

 private:
  static constexpr int kNumberless = 120;

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const Colors& colors = ColorsOf(palette());
    const QRect box = rect().adjusted(0, 2, 0, -2);
    if (differs_) DrawBox(painter, box, kSmallRadius, colors[Role::WarningFill], {});
    QRect text = box.adjusted(kCellPadding, 0, -kCellPadding, 0);
    if (differs_ && says_so_) {
      const QString word = Text("differs");
      const QFont small = MediumFont(SmallFont(font()));
      painter.setFont(small);
      painter.setPen(colors[Role::Warning]);
      painter.drawText(text, Qt::AlignVCenter | Qt::AlignTrailing, word);
      const int width = QFontMetrics(small).horizontalAdvance(word) + kGap;
      text = QStyle::visualRect(layoutDirection(), text, text.adjusted(0, 0, -width, 0));
    }
    painter.setFont(font());
    painter.setPen(colors[Role::Text]);
    // The minus of an amount stays before it, whatever way the sheet reads.
    painter.setLayoutDirection(text_.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    const auto side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading);
    painter.drawText(text, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QFontMetrics(font()).elidedText(text_, Qt::ElideRight, text.width()));
  }

  bool says_so_;
  QString text_;
  bool differs_ = false;
};

ReviewComparison::ReviewComparison(QWidget* parent)
    : QWidget(parent),
      icon_(new QLabel(this)),
      caption_(new QLabel(this)),
      reason_(new QLabel(this)),
      matches_label_(new QLabel(Text("Match with"), this)),
      matches_(new QComboBox(this)),
      fields_(new QWidget(this)) {
  setObjectName(QLatin1String("import_Comparison"));
  caption_->setObjectName(QLatin1String("import_Match_Field"));
  icon_->setPixmap(PixmapNamed(QLatin1String("reconcile"), kIconSize, devicePixelRatioF(),
                               ColorsOf(palette())[Role::Warning]));
  for (QLabel* label : {caption_, reason_, matches_label_}) label->setTextFormat(Qt::PlainText);
  SetTextInk(*reason_, Role::Dim);
  auto* head = new QHBoxLayout;
  head->setContentsMargins(kGroupGap - 2, kWideGap, kGroupGap - 2, kWideGap);
  head->setSpacing(kWideGap);
  head->addWidget(icon_);
  head->addWidget(caption_);
  head->addWidget(reason_, 1);
  head->addWidget(matches_label_);
  head->addWidget(matches_);
  matches_->setObjectName(QLatin1String("import_Match_PopUp"));
  matches_->setAccessibleName(matches_label_->text());
  matches_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  matches_->setMaximumWidth(kWidestMatch);
  matches_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  reason_->setWordWrap(true);
  matches_label_->setBuddy(matches_);
  SetTextInk(*matches_label_, Role::Dim);
  connect(matches_, &QComboBox::activated, this, &ReviewComparison::MatchChosen);

  auto* grid = new QGridLayout(fields_);
  grid->setContentsMargins(kSheetMargin * 2, kWideGap, kGroupGap - 2, kWideGap);
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(0);
  grid->setColumnMinimumWidth(0, 94);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  for (int column = 1; column < 3; ++column) {
    auto* title = new QLabel(Text(column == 1 ? "In the File" : "In the Account"), fields_);
    title->setFont(MediumFont(SmallFont(font())));
    title->setContentsMargins(kCellPadding, 0, 0, kTightGap);
    SetTextInk(*title, Role::Dim);
    grid->addWidget(title, 0, column);
  }
  for (std::size_t i = 0; i < kShown.size(); ++i) {
    const int line = static_cast<int>(i) + 1;
    rows_[i] = {new QLabel(Text(kShown[i].title), fields_), new Field(false, fields_),
                new Field(true, fields_)};
    SetTextInk(*rows_[i].label, Role::Dim);
    grid->addWidget(rows_[i].label, line, 0);
    grid->addWidget(rows_[i].in_file, line, 1);
    grid->addWidget(rows_[i].in_account, line, 2);
  }
  QSizePolicy policy = fields_->sizePolicy();
  // The room stays, so that nothing moves from row to row.
  policy.setRetainSizeWhenHidden(true);
  fields_->setSizePolicy(policy);
  policy = icon_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  icon_->setSizePolicy(policy);

  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addLayout(head);
  whole->addWidget(new RuleLine(this));
  whole->addWidget(fields_);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ReviewComparison::Show(const LDGRQIFImportEntry* entry, const QifMatch* match,
                            const EntryList& matches, const TableFormat& format) {
  ShowMatches(matches, format);
  const bool is_matched = entry != nullptr && entry->GetMatched() != nullptr;
  const bool repeats = is_matched || (entry != nullptr && match != nullptr);
  fields_->setVisible(repeats);
  icon_->setVisible(repeats);
  caption_->setFont(repeats ? DemiBoldFont(font()) : font());
  SetTextInk(*caption_, repeats ? Role::Text : Role::Dim);
  if (!repeats) {
    caption_->setText(entry == nullptr ? Text("No entry is selected.")
                                       : Text("Repeats no entry of the account."));
    reason_->clear();
    return;
  }
  if (is_matched) {
    const std::string day = DayCell(entry->GetMatched()->GetDate(), format).text;
    caption_->setText(ToQString(Message("Matched with the entry of {1}", {day})));
    reason_->setText(Text("That one gets the cleared mark, and this one is not imported."));
    return ShowFields(*entry, *entry->GetMatched(), format);
  }
  const bool is_near = match->reason == Reason::NearDate;
  const std::string day = DayCell(match->entry->GetDate(), format).text;
  caption_->setText(ToQString(
      Message(is_near ? "May repeat the entry of {1}" : "Repeats the entry of {1}", {day})));
  std::string reason = ReasonText(*entry, *match);
  if (match->in_file > 1 || match->in_account > 1) {
    reason = Message("{1} {2} such in the file, {3} in the account.",
                     {reason, std::to_string(match->in_file), std::to_string(match->in_account)});
  }
  reason_->setText(ToQString(Message(
      entry->GetImport() ? "{1} It is marked: you decide." : "{1} It is not marked: you decide.",
      {reason})));
  ShowFields(*entry, *match->entry, format);
}

void ReviewComparison::ShowMatches(const EntryList& matches, const TableFormat& format) {
  const bool has_choice = matches.size() > 1;
  matches_label_->setVisible(has_choice);
  matches_->setVisible(has_choice);
  if (!has_choice) return;
  std::vector<PopUpItem> items;
  for (const auto& each : matches) {
    const std::string day = DayCell(each->GetDate(), format).text;
    const std::string& name =
        each->GetToFrom().empty() ? each->GetDescription() : each->GetToFrom();
    items.push_back({name.empty() ? day : Message("{1}, {2}", {day, name}),
                     static_cast<std::int32_t>(items.size())});
  }
  ShowItems(*matches_, items, 0);
}

void ReviewComparison::ShowFields(const LDGRQIFImportEntry& entry, const LDGRAccountEntry& existing,
                                  const TableFormat& format) {
  for (std::size_t i = 0; i < kShown.size(); ++i) {
    const TableCell ours = CellOfReviewed(entry, kShown[i].column, format);
    const TableCell theirs = CellOfEntry(existing, kShown[i].column, format);
    const bool differs = ours != theirs;
    rows_[i].in_file->Show(WithMinus(ToQString(ours.text)), differs);
    rows_[i].in_account->Show(WithMinus(ToQString(theirs.text)), differs);
  }
}

void ReviewComparison::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  DrawBox(painter, rect(), kRadius, colors[Role::Base], colors[Role::Rule]);
}

}  // namespace tallyfold::desktop
