#include "desktop/tabs/summary_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <string>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "registers/register_look.h"
#include "storage/preferences.h"
#include "summaries/summary_layout.h"

namespace tallyfold::desktop {
namespace {

constexpr int kBarThickness = 10;
constexpr int kShareWidth = 28;
constexpr int kShareThickness = 6;
constexpr double kBarRadius = 2.0;

QLabel* Cell(QWidget* parent, const QString& text, bool is_right, bool is_bold = false) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setMinimumHeight(RowHeight(parent->fontMetrics()));
  label->setContentsMargins(kCellPadding, 0, kCellPadding, 0);
  label->setAlignment((is_right ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeading) |
                      Qt::AlignVCenter);
  if (is_bold) label->setFont(DemiBoldFont(parent->font()));
  return label;
}

QLabel* Header(QWidget* parent, const std::string& text, bool is_right) {
  auto* label = Cell(parent, ToQString(text), is_right);
  label->setFont(MediumFont(SmallFont(parent->font())));
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

// From -1 to 1, beside the others of its column.
class Bar final : public QWidget {
 public:
  Bar(double value, bool has_negative, bool has_positive, QWidget* parent)
      : QWidget(parent), value_(value), has_negative_(has_negative), has_positive_(has_positive) {
    setMinimumWidth(4 * kShareWidth);
  }

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colors& colors = ColorsOf(palette());
    const double axis = has_negative_ ? (has_positive_ ? width() / 2.0 : width() - 1.0) : 0.0;
    const double room = has_negative_ && has_positive_ ? width() / 2.0 : width() - 1.0;
    const double length = std::fabs(value_) * room;
    const double top = (height() - kBarThickness) / 2.0;
    const QRectF bar(value_ < 0.0 ? axis - length : axis, top, length, kBarThickness);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors[value_ < 0.0 ? Role::NegativeBar : Role::Bar]);
    if (length > 0.0) painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
    DrawRuleBefore(painter, QRectF(axis, top - 3, 1, kBarThickness + 6), colors[Role::Edge]);
  }

  double value_;
  bool has_negative_;
  bool has_positive_;
};

class ShareBar final : public QWidget {
 public:
  ShareBar(double share, QWidget* parent) : QWidget(parent), share_(share) {
    setFixedWidth(kShareWidth);
  }

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const Colors& colors = ColorsOf(palette());
    QRectF bar(0, (height() - kShareThickness) / 2.0, width(), kShareThickness);
    painter.setBrush(colors[Role::Hair]);
    painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
    bar.setWidth(std::max(share_ * width(), kBarRadius));
    painter.setBrush(colors[Role::Bar]);
    painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
  }

  double share_;
};

class Maker {
 public:
  Maker(QWidget* page, const LDGRPreferences& preferences)
      : page_(page), preferences_(preferences) {}

  [[nodiscard]] QString Amount(double amount) const {
    return ToQString(RegisterAmountText(amount, preferences_));
  }
  [[nodiscard]] QLayout* Head(const SummaryLayout::Head& head) const;
  [[nodiscard]] QLayout* Periods(const SummaryLayout& layout) const;
  [[nodiscard]] QLayout* Totals(const SummaryLayout& layout) const;
  [[nodiscard]] QLayout* Block(const SummaryLayout& layout,
                               const SummaryLayout::Block& block) const;

 private:
  void AddAmounts(QGridLayout& grid, int row, const SummaryLayout::Amounts& amounts,
                  bool is_bold) const;

  QWidget* page_;
  const LDGRPreferences& preferences_;
};

QLayout* Maker::Head(const SummaryLayout::Head& head) const {
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(0);
  auto* title = Cell(page_, ToQString(head.name), false, true);
  title->setFont(DemiBoldFont(LargerFont(page_->font(), kSummaryTitlePoints)));
  title->setObjectName(QLatin1String("summary_Title"));
  grid->addWidget(title, 0, 0);
  const std::string format = RegisterDateFormat(preferences_);
  const TableFormat days{format, preferences_};
  auto* range = Cell(page_,
                     QStringLiteral("%1, %2 \u2013 %3")
                         .arg(ToQString(head.account), ToQString(DayCell(head.first, days).text),
                              ToQString(DayCell(head.last, days).text)),
                     false);
  range->setForegroundRole(QPalette::PlaceholderText);
  grid->addWidget(range, 1, 0);
  grid->setColumnStretch(0, 1);
  const struct {
    std::string_view caption;
    double amount;
  } balances[] = {{"Start balance", head.start_balance}, {"End balance", head.end_balance}};
  int column = 1;
  for (const auto& [caption, amount] : balances) {
    grid->addWidget(Header(page_, LocalizedText(caption), true), 0, column);
    grid->addWidget(Cell(page_, Amount(amount), true, true), 1, column++);
  }
  return grid;
}

void Maker::AddAmounts(QGridLayout& grid, int row, const SummaryLayout::Amounts& amounts,
                       bool is_bold) const {
  int column = 2;
  for (const double amount : {amounts.debits, amounts.deposits, amounts.transfers, amounts.total}) {
    grid.addWidget(Cell(page_, Amount(amount), true, is_bold), row, column++);
  }
}

QLayout* Maker::Periods(const SummaryLayout& layout) const {
  auto* grid = new QGridLayout;
  grid->setSpacing(0);
  int column = 0;
  for (const std::string& title : layout.period_columns) {
    // The count of the entries has the second place.
    if (column == 1) grid->addWidget(Header(page_, LocalizedText("Entries"), true), 0, column++);
    grid->addWidget(Header(page_, title, column > 0), 0, column);
    ++column;
  }
  const auto is_negative = [](const auto& line) { return line.bar < 0.0; };
  const auto is_positive = [](const auto& line) { return line.bar > 0.0; };
  const bool has_negative = std::ranges::any_of(layout.periods, is_negative);
  const bool has_positive = std::ranges::any_of(layout.periods, is_positive);
  int row = 1;
  for (const auto& line : layout.periods) {
    grid->addWidget(Cell(page_, ToQString(line.title), false), row, 0);
    grid->addWidget(Cell(page_, QString::number(line.count), true), row, 1);
    AddAmounts(*grid, row, line.amounts, false);
    if (layout.has_bars) {
      grid->addWidget(new Bar(line.bar, has_negative, has_positive, page_), row, 6);
    }
    ++row;
  }
  grid->addWidget(Cell(page_, ToQString(layout.total_title), false, true), row, 0);
  grid->addWidget(Cell(page_, QString::number(layout.total_count), true, true), row, 1);
  AddAmounts(*grid, row, layout.total, true);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(6, 3);
  return grid;
}

QLayout* Maker::Totals(const SummaryLayout& layout) const {
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(0);
  int column = 0;
  for (const auto& total : layout.totals) {
    grid->addWidget(Header(page_, total.title, false), 0, column);
    grid->addWidget(Cell(page_, Amount(total.amount), false), 1, column++);
  }
  grid->setColumnStretch(column, 1);
  return grid;
}

QLayout* Maker::Block(const SummaryLayout& layout, const SummaryLayout::Block& block) const {
  auto* grid = new QGridLayout;
  grid->setSpacing(0);
  grid->addWidget(Header(page_, block.title, false), 0, 0);
  for (std::size_t i = 1; i < layout.block_columns.size(); ++i) {
    const int span = i == 3 ? 2 : 1;
    grid->addWidget(Header(page_, layout.block_columns[i], true), 0, static_cast<int>(i), 1, span);
  }
  int row = 1;
  for (const auto& line : block.lines) {
    grid->addWidget(Cell(page_, ToQString(line.name), false), row, 0);
    grid->addWidget(Cell(page_, QString::number(line.count), true), row, 1);
    grid->addWidget(Cell(page_, Amount(line.amount), true), row, 2);
    grid->addWidget(new ShareBar(line.share, page_), row, 3);
    grid->addWidget(Cell(page_, QStringLiteral("%1%").arg(100.0 * line.share, 0, 'f', 1), true),
                    row, 4);
    ++row;
  }
  grid->setColumnStretch(0, 1);
  return grid;
}

}  // namespace

SummaryPage::SummaryPage(QWidget* parent) : QWidget(parent) {
  setObjectName(QLatin1String("summary_View"));
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void SummaryPage::Clear() {
  delete layout();
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void SummaryPage::Show(const SummaryLayout& layout, const LDGRPreferences& preferences) {
  Clear();
  const Maker maker(this, preferences);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kWideGap, kGroupGap, kWideGap, kGroupGap);
  column->setSpacing(kGroupGap);
  column->addLayout(maker.Head(layout.head));
  column->addLayout(maker.Periods(layout));
  if (!layout.left_out_periods.empty()) {
    column->addWidget(Cell(this, ToQString(layout.left_out_periods), false));
  }
  QString check = ToQString(layout.check_title);
  if (layout.check == SummaryLayout::Check::EntriesLeftOut) {
    check += QLatin1String(" ") + maker.Amount(layout.left_out);
  }
  column->addWidget(Cell(this, check, false));
  column->addLayout(maker.Totals(layout));
  for (const auto& block : layout.blocks) column->addLayout(maker.Block(layout, block));
  column->addStretch(1);
}

}  // namespace tallyfold::desktop
