#include "desktop/sheets/left_out_lines.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/exchange/statement_import_state.h"
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/proof_rows.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr std::size_t kMostLinesInSight = 3;

}  // namespace

LeftOutLines::LeftOutLines(QWidget* parent)
    : QWidget(parent), counts_(MakeCaption(QString(), this)), lines_(new LookTable(this)) {
  counts_->setObjectName(QLatin1String("importOptions_LeftOut_Field"));
  counts_->setWordWrap(true);
  lines_->setObjectName(QLatin1String("importOptions_LeftOut_Table"));
  lines_->setAccessibleName(Text("Lines That Are No Entries"));
  lines_->setSelectionMode(QAbstractItemView::NoSelection);
  lines_->SetColumns({{Text("Line"), 50, CellLook::Align::Trailing},
                      {Text("Reason"), 150},
                      {Text("Text"), 200, CellLook::Align::Leading, true}});
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(kGap);
  whole->addWidget(counts_);
  whole->addWidget(lines_);
}

void LeftOutLines::Show(const StatementOptionsState& state) {
  setVisible(!state.left_out.empty());
  if (state.left_out.empty()) return;
  std::string counts;
  const auto add = [&counts](std::string_view key, std::size_t number) {
    if (number == 0) return;
    if (!counts.empty()) counts += ' ';
    counts += Message(key, {std::to_string(number)});
  };
  add("Lines of balances left out: {1}.", state.balance_lines);
  add("Lines added to the entry above: {1}.", state.continuation_lines);
  add("Other lines left out: {1}.", state.other_lines);
  if (state.balance_lines + state.continuation_lines + state.other_lines > state.left_out.size()) {
    add("Shown are the first {1}.", state.left_out.size());
  }
  counts_->setText(ToQString(counts));
  std::vector<LookTable::Row> rows;
  for (const LeftOutLine& each : state.left_out) {
    rows.push_back({FigureCell(std::to_string(each.line), CellLook::Align::Trailing),
                    TextCell(ToUtf8(Text(TextOf(each.reason)))), TextCell(each.text, true)});
  }
  lines_->SetRowsInSight(static_cast<int>(std::min(rows.size(), kMostLinesInSight)));
  lines_->SetRows(std::move(rows));
}

}  // namespace tallyfold::desktop
