#include "desktop/sheets/preferences_sample_table.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <QtMath>
#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/look/figures.h"
#include "desktop/look/measures.h"
#include "desktop/register/entry_details.h"
#include "desktop/register/look_table.h"
#include "desktop/register/table_look.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kSampleRows = 5;
constexpr int kSampleTextWidth = 120;
constexpr int kFormatWidth = 140;
constexpr std::size_t kFormatRows = 2;
constexpr int kChosenSample = 2;

CellLook SampleLook(const TableCell& cell, bool is_figure, const RowLook& row) {
  CellLook look{.text = ToQString(cell.text), .is_figure = is_figure, .is_italic = row.is_italic};
  if (cell.alignment == TableCell::Alignment::Right) look.align = CellLook::Align::Trailing;
  return look;
}

}  // namespace

InkSample::InkSample(QWidget* parent) : QWidget(parent) {}

void InkSample::Show(const QString& amount, const QColor& stored) {
  if (amount == amount_ && stored == stored_) return;
  amount_ = amount;
  stored_ = stored;
  updateGeometry();
  update();
}

QSize InkSample::sizeHint() const {
  return {qCeil(Figures(font()).Width(amount_)), ControlHeight(fontMetrics())};
}

void InkSample::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  painter.setPen(inks_.Ink(stored_, colors[Role::Base], colors));
  Figures(font()).Draw(painter, rect(), amount_, Qt::AlignLeft);
}

PreferencesSampleTable::PreferencesSampleTable(Shows shows, const char* name, QWidget* parent)
    : QWidget(parent), shows_(shows), table_(new LookTable(this)) {
  using Align = CellLook::Align;
  const bool shows_rows = shows == Shows::Rows;
  const QString title = shows_rows ? Text("As it will look") : Text("For example");
  auto* caption = Form::MakeNote(this);
  caption->setFont(MediumFont(SmallFont(font())));
  caption->setText(title);
  table_->setObjectName(QLatin1String(name));
  table_->setAccessibleName(title);
  caption->setBuddy(table_);
  if (shows_rows) {
    table_->SetColumns(
        {{.title = Text("Date")},
         {.title = Text("Description"), .width = kSampleTextWidth, .takes_rest = true},
         {.title = Text("To/From"), .width = kSampleTextWidth},
         {.title = Text("Amount"), .align = Align::Trailing},
         {.title = Text("Balance"), .align = Align::Trailing}});
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    table_->setMinimumHeight((kSampleRows + 1) * RowHeight(fontMetrics()));
  } else {
    table_->SetColumns({{.title = Text("Date"), .width = kFormatWidth},
                        {.title = Text("Amount"), .width = kFormatWidth, .align = Align::Trailing},
                        {.title = Text("You may type"), .takes_rest = true}});
    table_->SetRowsInSight(static_cast<int>(kFormatRows));
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, 0);
  column->setSpacing(kGap - 2);
  column->addWidget(caption);
  column->addWidget(table_, 1);
}

void PreferencesSampleTable::Show(const PreferencesSample& sample,
                                  const LDGRPreferences& settings) {
  if (shows_ == Shows::Rows) return ShowRows(sample, settings);
  ShowFormats(sample);
}

void PreferencesSampleTable::ShowRows(const PreferencesSample& sample,
                                      const LDGRPreferences& settings) {
  const TableLook look = TableLookOf(settings, font());
  table_->SetRowFont(look.font, look.uses_ellipses);
  std::vector<LookTable::Row> rows;
  for (const PreferencesSample::Row& row : sample.rows) {
    CellLook description = SampleLook(row.description, false, row.look);
    CellLook to_from = SampleLook(row.to_from, false, row.look);
    AddEntryGlyphs(description, "description", *row.entry);
    AddEntryGlyphs(to_from, "toFrom", *row.entry);
    CellLook amount = SampleLook(row.amount, true, row.look);
    if (row.look.color) amount.color = ColorOf(*row.look.color);
    CellLook balance = SampleLook(row.balance, true, row.look);
    if (row.balance.number.value_or(0.0) < 0.0) balance.color = look.negative;
    rows.push_back({SampleLook(row.date, true, row.look), std::move(description),
                    std::move(to_from), std::move(amount), std::move(balance)});
  }
  table_->SetRows(std::move(rows));
  table_->SetEmptyText(sample.rows.empty() ? Text("The account has no entries yet.") : QString());
  if (!table_->currentIndex().isValid()) table_->ShowChosen(kChosenSample);
}

void PreferencesSampleTable::ShowFormats(const PreferencesSample& sample) {
  std::vector<LookTable::Row> rows;
  for (const PreferencesSample::Format& format : sample.formats) {
    if (rows.size() == kFormatRows) break;
    CellLook amount{
        .text = ToQString(format.amount), .align = CellLook::Align::Trailing, .is_figure = true};
    if (format.look.color) amount.color = ColorOf(*format.look.color);
    rows.push_back({{.text = ToQString(format.date), .is_figure = true},
                    std::move(amount),
                    {.text = ToQString(format.may_type), .is_dim = true}});
  }
  table_->SetRows(std::move(rows));
}

}  // namespace tallyfold::desktop
