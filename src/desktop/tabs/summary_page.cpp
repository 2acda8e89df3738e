#include "desktop/tabs/summary_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <string>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/tabs/summary_table.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

using Column = SummaryTable::Column;

// Narrower pages have fewer columns of blocks.
constexpr int kTwoColumns = 720;
constexpr int kThreeColumns = 1180;

QLabel* SummaryLabel(QWidget* parent, const QString& text) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

QLabel* SummaryCaption(QWidget* parent, const QString& text) {
  auto* label = SummaryLabel(parent, text);
  label->setFont(MediumFont(SmallFont(parent->font())));
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

FigureLabel* Figure(QWidget* parent, double amount, const LDGRPreferences& preferences,
                    const QFont& font) {
  auto* label = new FigureLabel(parent);
  label->setText(ToQString(RegisterAmountText(amount, preferences)));
  label->setFont(font);
  label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
  return label;
}

QLayout* MakeHead(QWidget* page, const SummaryLayout& layout, const LDGRPreferences& preferences) {
  auto* grid = new QGridLayout;
  grid->setContentsMargins(kCellPadding, 0, kCellPadding, 0);
  grid->setHorizontalSpacing(kColumnGap);
  grid->setVerticalSpacing(kTightGap);
  auto* title = SummaryLabel(page, ToQString(layout.head.name).trimmed());
  title->setFont(DemiBoldFont(LargerFont(page->font(), kSummaryTitlePoints)));
  title->setObjectName(QLatin1String("summary_Title"));
  grid->addWidget(title, 0, 0);
  const std::string format = RegisterDateFormat(preferences);
  const TableFormat days{format, preferences};
  auto* range = SummaryLabel(
      page, ToQString(Message("{1}, {2} – {3}",
                              {layout.head.account, DayCell(layout.head.first, days).text,
                               DayCell(layout.head.last, days).text})));
  range->setForegroundRole(QPalette::PlaceholderText);
  grid->addWidget(range, 1, 0);
  grid->setColumnStretch(0, 1);
  const QFont figures = DemiBoldFont(LargerFont(page->font(), kStatusFigurePoints));
  const struct {
    std::string_view caption;
    double amount;
  } balances[] = {{"Start balance", layout.head.start_balance},
                  {"Total", layout.total.total},
                  {"End balance", layout.head.end_balance}};
  int column = 1;
  for (const auto& [caption, amount] : balances) {
    grid->addWidget(SummaryCaption(page, Text(caption)), 0, column,
                    Qt::AlignRight | Qt::AlignAbsolute);
    grid->addWidget(Figure(page, amount, preferences, figures), 1, column++);
  }
  return grid;
}

QLayout* MakeCheck(QWidget* page, const SummaryLayout& layout, const LDGRPreferences& preferences) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(kCellPadding, 0, kCellPadding, 0);
  row->setSpacing(kGap);
  const bool agrees = layout.check == SummaryLayout::Check::Agrees;
  const QColor& ink = ColorsOf(page->palette())[agrees ? Role::Good : Role::Warning];
  auto* image = new QLabel(page);
  image->setPixmap(PixmapNamed(QLatin1String(agrees ? "tick" : "warning"), kIconSize,
                               page->devicePixelRatioF(), ink));
  row->addWidget(image);
  QString text = ToQString(layout.check_title);
  if (layout.check == SummaryLayout::Check::EntriesLeftOut) {
    text = ToQString(
        Message("{1} {2}", {layout.check_title, RegisterAmountText(layout.left_out, preferences)}));
  }
  auto* sentence = SummaryLabel(page, text);
  sentence->setWordWrap(true);
  if (agrees) {
    sentence->setForegroundRole(QPalette::PlaceholderText);
  } else {
    SetTextInk(*sentence, ink);
  }
  row->addWidget(sentence, 1);
  return row;
}

QLayout* MakeTotals(QWidget* page, const SummaryLayout& layout,
                    const LDGRPreferences& preferences) {
  auto* grid = new QGridLayout;
  grid->setContentsMargins(kCellPadding, 0, kCellPadding, 0);
  grid->setHorizontalSpacing(kSheetMargin);
  grid->setVerticalSpacing(kTightGap);
  int column = 0;
  for (const auto& total : layout.totals) {
    if (column > 0) grid->addWidget(new RuleLine(page, Qt::Vertical), 0, column++, 2, 1);
    grid->addWidget(SummaryCaption(page, ToQString(total.title)), 0, column);
    auto* figure = Figure(page, total.amount, preferences, page->font());
    figure->setAlignment(Qt::AlignLeading);
    grid->addWidget(figure, 1, column++);
  }
  grid->setColumnStretch(column, 1);
  return grid;
}

}  // namespace

SummaryPage::SummaryPage(QWidget* parent) : QWidget(parent) {
  setObjectName(QLatin1String("summary_View"));
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void SummaryPage::Clear() {
  blocks_.clear();
  blocks_area_ = nullptr;
  delete layout();
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void SummaryPage::Show(const SummaryLayout& layout, const LDGRPreferences& preferences) {
  Clear();
  shown_ = layout;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kWideGap, kGroupGap, kWideGap, kGroupGap);
  column->setSpacing(kGroupGap);
  column->addLayout(MakeHead(this, shown_, preferences));
  AddPeriods(*column, preferences);
  if (!shown_.left_out_periods.empty()) {
    column->addWidget(SummaryLabel(this, ToQString(shown_.left_out_periods)));
  }
  column->addLayout(MakeCheck(this, shown_, preferences));
  column->addLayout(MakeTotals(this, shown_, preferences));
  blocks_area_ = new QWidget(this);
  for (std::size_t i = 0; i < shown_.blocks.size(); ++i) {
    blocks_.push_back(MakeBlock(i, preferences));
  }
  column->addWidget(blocks_area_);
  column->addStretch(1);
  block_columns_ = 0;
  LayOutBlocks();
}

void SummaryPage::AddPeriods(QVBoxLayout& column, const LDGRPreferences& preferences) {
  SummaryTable::Content content;
  content.name = Text("Periods");
  for (const std::string& title : shown_.period_columns) {
    const bool is_first = content.columns.empty();
    content.columns.push_back(
        {ToQString(title), is_first ? Column::Kind::Text : Column::Kind::Figure});
    if (is_first) content.columns.push_back({Text("Entries"), Column::Kind::Count});
  }
  if (shown_.has_bars) content.columns.push_back({QString(), Column::Kind::Bar});
  content.rows = static_cast<int>(shown_.periods.size()) + 1;
  content.ends_with_total = true;
  content.text = [this, &preferences](int row, int place) {
    const bool is_total = row == static_cast<int>(shown_.periods.size());
    const auto* line = is_total ? nullptr : &shown_.periods[static_cast<std::size_t>(row)];
    if (place == 0) return ToQString(is_total ? shown_.total_title : line->title);
    if (place == 1) return QString::number(is_total ? shown_.total_count : line->count);
    const SummaryLayout::Amounts& amounts = is_total ? shown_.total : line->amounts;
    const double values[] = {amounts.debits, amounts.deposits, amounts.transfers, amounts.total};
    return ToQString(RegisterAmountText(values[place - 2], preferences));
  };
  content.bar = [this](int row) { return shown_.periods[static_cast<std::size_t>(row)].bar; };
  content.activated = Wanting([this](int row) {
    const auto line = static_cast<std::size_t>(row);
    const bool is_total = line == shown_.periods.size();
    return SummaryLine{is_total ? SummaryLine::Kind::Total : SummaryLine::Kind::Period, line, 0};
  });
  content.has_negative_bars =
      std::ranges::any_of(shown_.periods, [](const auto& line) { return line.bar < 0.0; });
  content.has_positive_bars =
      std::ranges::any_of(shown_.periods, [](const auto& line) { return line.bar > 0.0; });
  auto* table = new SummaryTable(std::move(content), this);
  table->setObjectName(QLatin1String("summary_Periods"));
  column.addWidget(table);
}

std::function<void(int)> SummaryPage::Wanting(std::function<SummaryLine(int row)> line) {
  return [this, line = std::move(line)](int row) {
    // The table is done with its event first.
    QTimer::singleShot(0, this, [this, wanted = line(row)] { emit EntriesWanted(wanted); });
  };
}

SummaryTable* SummaryPage::MakeBlock(std::size_t number, const LDGRPreferences& preferences) {
  const SummaryLayout::Block& block = shown_.blocks[number];
  SummaryTable::Content content;
  content.name = ToQString(block.title);
  for (std::size_t i = 0; i < shown_.block_columns.size(); ++i) {
    const auto kind = i == 0   ? Column::Kind::Text
                      : i == 1 ? Column::Kind::Count
                      : i == 3 ? Column::Kind::Share
                               : Column::Kind::Figure;
    content.columns.push_back({ToQString(i == 0 ? block.title : shown_.block_columns[i]), kind});
  }
  content.rows = static_cast<int>(block.lines.size());
  content.text = [&block, &preferences](int row, int place) {
    const auto& line = block.lines[static_cast<std::size_t>(row)];
    switch (place) {
      case 0:
        return ToQString(line.name);
      case 1:
        return QString::number(line.count);
      case 2:
        return ToQString(RegisterAmountText(line.amount, preferences));
      default:
        return QStringLiteral("%1%").arg(100.0 * line.share, 0, 'f', 1);
    }
  };
  content.activated = Wanting([number](int row) {
    return SummaryLine{SummaryLine::Kind::Block, static_cast<std::size_t>(row), number};
  });
  double greatest = 0.0;
  for (const auto& line : block.lines) greatest = std::max(greatest, line.share);
  content.bar = [&block, greatest](int row) {
    const double share = block.lines[static_cast<std::size_t>(row)].share;
    return greatest > 0.0 ? share / greatest : 0.0;
  };
  auto* table = new SummaryTable(std::move(content), blocks_area_);
  table->setObjectName(QStringLiteral("summary_Block_%1").arg(number));
  return table;
}

void SummaryPage::LayOutBlocks() {
  if (blocks_area_ == nullptr) return;
  // What can be seen of the page counts, which itself may be wider.
  const int room = parentWidget()->width();
  int widest = 1;
  for (const SummaryTable* block : blocks_) widest = std::max(widest, block->sizeHint().width());
  const int most = room < kTwoColumns ? 1 : room < kThreeColumns ? 2 : 3;
  const int columns = std::clamp((room - kWideGap) / (widest + kWideGap), 1, most);
  if (columns == block_columns_) return;
  block_columns_ = columns;
  delete blocks_area_->layout();
  auto* row = new QHBoxLayout(blocks_area_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kWideGap);
  std::vector<std::pair<int, QVBoxLayout*>> filled;
  for (int i = 0; i < columns; ++i) {
    auto* column = new QVBoxLayout;
    column->setSpacing(kGroupGap);
    row->addLayout(column, 1);
    filled.emplace_back(0, column);
  }
  // Each goes where there is most room, the first of equal ones.
  for (SummaryTable* block : blocks_) {
    auto& [height, column] =
        *std::ranges::min_element(filled, {}, &std::pair<int, QVBoxLayout*>::first);
    column->addWidget(block);
    height += block->sizeHint().height() + kGroupGap;
  }
  for (const auto& [height, column] : filled) column->addStretch(1);
}

void SummaryPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOutBlocks();
}

}  // namespace tallyfold::desktop
