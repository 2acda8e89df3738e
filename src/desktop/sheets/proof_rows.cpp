#include "desktop/sheets/proof_rows.h"

#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/register/table_look.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

using Align = CellLook::Align;

}  // namespace

QLabel* MakeCaption(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setFont(MediumFont(SmallFont(parent->font())));
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

CellLook TextCell(const std::string& text, bool is_dim) {
  CellLook look;
  look.text = ToQString(text);
  look.is_dim = is_dim;
  return look;
}

CellLook FigureCell(const std::string& text, Align align, bool is_dim) {
  CellLook look = TextCell(text, is_dim);
  look.is_figure = true;
  look.align = align;
  return look;
}

ProofRows::ProofRows(QWidget* parent) : QWidget(parent), table_(new LookTable(this)) {
  table_->setObjectName(QLatin1String("importOptions_Proof_Table"));
  table_->setAccessibleName(Text("The First Entries"));
  table_->setFocusPolicy(Qt::NoFocus);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->SetColumns({{Text("Date"), 80},
                      {Text("Type"), 90},
                      {Text("Description"), 100, Align::Leading, true},
                      {Text("To/From"), 110},
                      {Text("Amount"), 90, Align::Trailing}});
  table_->SetRowsInSight(static_cast<int>(kMostProofRows));
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(kGap);
  whole->addWidget(MakeCaption(Text("The first entries, as they will come in"), this));
  whole->addWidget(table_);
}

void ProofRows::Show(const std::vector<QifImportProof::Row>& rows, bool can_come_in) {
  std::vector<LookTable::Row> shown;
  for (const QifImportProof::Row& row : rows) {
    CellLook to_from = TextCell(row.to_from);
    if (row.is_split) to_from.glyph_before = QLatin1String("split");
    CellLook amount = FigureCell(row.amount.text, Align::Trailing);
    if (row.look.color) amount.color = ColorOf(*row.look.color);
    shown.push_back({FigureCell(row.date.text, Align::Leading), TextCell(row.type),
                     TextCell(row.description), to_from, amount});
  }
  table_->SetRows(std::move(shown));
  table_->SetEmptyText(Text("There are no entries here."));
  table_->setEnabled(can_come_in);
}

}  // namespace tallyfold::desktop
