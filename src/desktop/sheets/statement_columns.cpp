#include "desktop/sheets/statement_columns.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>
#include <utility>

#include "desktop/look/figures.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "exchange/csv_choices.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kWidestCell = 220;
constexpr std::size_t kShownRows = CsvReading::kMostFirstRows + 1;  // with the heading

}  // namespace

StatementColumns::StatementColumns(QWidget* parent)
    : QScrollArea(parent), page_(new QWidget(this)), grid_(new QGridLayout(page_)) {
  setObjectName(QLatin1String("importOptions_Columns"));
  // Its pop-ups take the keys.
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(Text("Columns of the File"));
  setWidgetResizable(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid_->setContentsMargins(kGap, kGap, kGap, kGap);
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kTightGap);
  page_->setBackgroundRole(QPalette::Base);
  page_->setAutoFillBackground(true);
  setWidget(page_);
}

void StatementColumns::Make(const StatementOptionsState& state) {
  for (const Column& column : columns_) {
    // It may be one of them that is chosen from.
    column.field->hide();
    column.field->setObjectName(QString());
    column.field->deleteLater();
    for (QLabel* label : column.cells) delete label;
  }
  columns_.clear();
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    const int place = static_cast<int>(i);
    Column column{new QComboBox(page_), {}};
    column.field->setObjectName(QLatin1String("importOptions_Column_PopUp_") +
                                QString::number(place));
    grid_->addWidget(column.field, 0, place);
    for (std::size_t row = 0; row < kShownRows; ++row) {
      auto* label = new QLabel(page_);
      label->setTextFormat(Qt::PlainText);
      label->setContentsMargins(kCellPadding, 0, kCellPadding, 0);
      if (row == 0) label->setFont(MediumFont(SmallFont(font())));
      grid_->addWidget(label, static_cast<int>(row) + 1, place);
      column.cells.push_back(label);
    }
    connect(column.field, &QComboBox::currentIndexChanged, this,
            [this, place, pop_up = column.field] {
              emit FieldChosen(place, pop_up->currentData().toInt());
            });
    columns_.push_back(std::move(column));
  }
  grid_->setColumnStretch(static_cast<int>(state.columns.size()), 1);
}

void StatementColumns::Show(const StatementOptionsState& state) {
  setVisible(!state.columns.empty());
  if (columns_.size() != state.columns.size()) Make(state);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const auto& column = state.columns[i];
    const auto& shown = columns_[i];
    ShowItems(*shown.field, state.field_items,
              IndexOfItemTagged(state.field_items, static_cast<std::int32_t>(column.field)));
    const std::string number = std::to_string(i + 1);
    shown.field->setAccessibleName(
        ToQString(column.heading.empty() ? Message("Column {1}", {number})
                                         : Message("Column {1}, {2}", {number, column.heading})));
    const bool is_read = column.field != CsvField::None;
    const std::size_t rows = 1 + column.cells.size();
    for (std::size_t row = 0; row < kShownRows; ++row) {
      const std::string none;
      const std::string& text = row == 0                     ? column.heading
                                : row <= column.cells.size() ? column.cells[row - 1]
                                                             : none;
      QLabel* const label = shown.cells[row];
      label->setText(label->fontMetrics().elidedText(ToQString(text).simplified(), Qt::ElideRight,
                                                     kWidestCell));
      label->setVisible(row < rows);
      label->setForegroundRole(is_read && row > 0 ? QPalette::Text : QPalette::PlaceholderText);
    }
  }
  setFixedHeight(page_->sizeHint().height() + kScrollBarExtent + 2 * frameWidth());
}

}  // namespace tallyfold::desktop
