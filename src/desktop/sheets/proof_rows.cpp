#include "desktop/sheets/proof_rows.h"

#include <QLabel>
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

void SetUpProofRows(LookTable& table) {
  table.setObjectName(QLatin1String("importOptions_Proof_Table"));
  table.setAccessibleName(Text("The First Entries"));
  table.setFocusPolicy(Qt::NoFocus);
  table.setSelectionMode(QAbstractItemView::NoSelection);
  table.SetColumns({{Text("Date"), 80},
                    {Text("Type"), 90},
                    {Text("Description"), 100, Align::Leading, true},
                    {Text("To/From"), 110},
                    {Text("Amount"), 90, Align::Trailing}});
  table.SetRowsInSight(static_cast<int>(kMostProofRows));
}

void ShowProofRows(LookTable& table, const std::vector<QifImportProof::Row>& rows) {
  std::vector<LookTable::Row> shown;
  for (const QifImportProof::Row& row : rows) {
    CellLook to_from = TextCell(row.to_from);
    if (row.is_split) to_from.glyph_before = QLatin1String("split");
    CellLook amount = FigureCell(row.amount.text, Align::Trailing);
    if (row.look.color) amount.color = ColorOf(*row.look.color);
    shown.push_back({FigureCell(row.date.text, Align::Leading), TextCell(row.type),
                     TextCell(row.description), to_from, amount});
  }
  table.SetRows(std::move(shown));
  table.SetEmptyText(Text("There are no entries here."));
}

}  // namespace tallyfold::desktop
