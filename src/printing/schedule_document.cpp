#include "printing/schedule_document.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "platform/ambient.h"
#include "printing/document_head.h"
#include "printing/figures.h"
#include "printing/split_lines.h"
#include "registers/schedule_list.h"

namespace tallyfold {
namespace {

enum Column : std::size_t {
  kNext,
  kRepeats,
  kUntil,
  kOverdue,
  kType,
  kDescription,
  kToFrom,
  kAmount,
  kColumns
};

std::array<std::string, kColumns> TextsOf(const ScheduleRow& row, const PrintedFigures& figures) {
  return {row.next_date, row.repeats,
          row.until,     row.overdue == 0 ? "" : std::to_string(row.overdue),
          row.type,      row.description,
          row.to_from,   figures.Amount(row.amount)};
}

std::vector<PrintColumn> EmptyColumns() {
  const auto whole = [](std::string_view title, PrintAlignment alignment) {
    return PrintColumn{.title = LocalizedText(title), .alignment = alignment};
  };
  const auto text = [](std::string_view title, std::size_t wanted, std::size_t least) {
    return PrintColumn{
        .title = LocalizedText(title), .is_elastic = true, .wanted = wanted, .least = least};
  };
  return {whole("Next", PrintAlignment::Left),
          text("Repeats", 14, 8),
          whole("Until", PrintAlignment::Left),
          whole("Overdue", PrintAlignment::Right),
          text("Type", 8, 4),
          text("Description", 14, 6),
          text("To/From", 12, 5),
          whole("Amount", PrintAlignment::Right)};
}

}  // namespace

PrintDocument ScheduleDocument(const LDGRAccount& account, const LDGRPreferences& preferences,
                               const RegisterPrintOptions& options) {
  const PrintedFigures figures(preferences);
  PrintTable table;
  table.columns = EmptyColumns();
  table.columns[kDescription].takes_rest = true;
  table.note_column = kDescription;
  std::vector<ReadyRows::Row> rows;
  AmountShapes amounts;
  for (const ScheduleRow& row : ScheduleRows(account, figures.DateFormat(), options.today)) {
    ReadyRows::Row printed;
    auto texts = TextsOf(row, figures);
    for (std::size_t column = 0; column < kColumns; ++column) {
      table.columns[column].samples.push_back(texts[column]);
      printed.line.cells.push_back({column, std::move(texts[column])});
    }
    if (options.splits) {
      AddSplitAmounts(*row.schedule, amounts);
      printed.details = SplitLines(*row.schedule, {kDescription, 1, kToFrom, kAmount}, figures);
    }
    if (options.notes) printed.note = row.schedule->GetNotes();
    rows.push_back(std::move(printed));
  }
  for (std::string& sample : amounts.Samples(figures)) {
    table.columns[kAmount].samples.push_back(std::move(sample));
  }
  if (!rows.empty()) rows.back().is_kept_with_next = true;
  rows.push_back(
      {.line = {.cells = {{kNext, CountInWords(rows.size(), "scheduled entry", "scheduled entries"),
                           kColumns}},
                .style = TextStyle::Strong},
       .has_rule_above = !rows.empty()});
  table.rows = std::make_shared<ReadyRows>(std::move(rows));

  PrintDocument document = DocumentOf(account, preferences, options.today);
  document.head.push_back({LocalizedText("Scheduled Entries"), ""});
  document.tables.push_back(std::move(table));
  return document;
}

}  // namespace tallyfold
