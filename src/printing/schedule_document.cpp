#include "printing/schedule_document.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ambient.h"
#include "platform/message.h"
#include "printing/document_head.h"
#include "printing/figures.h"
#include "printing/split_lines.h"
#include "registers/schedule_list.h"

namespace tallyfold {
namespace {

constexpr std::string_view kScheduleDescription = "description";
constexpr std::string_view kScheduleToFrom = "toFrom";
constexpr std::string_view kScheduleAmount = "amount";

// Columns whose texts may be shortened: how many characters each wants, and needs.
struct ScheduleTextColumn {
  std::string_view identifier;
  std::size_t wanted;
  std::size_t least;
};
constexpr ScheduleTextColumn kScheduleTextColumns[] = {
    {"repeats", 14, 8}, {"type", 8, 4}, {kScheduleDescription, 14, 6}, {kScheduleToFrom, 12, 5}};

PrintColumn EmptyColumn(const TableColumn& shown) {
  PrintColumn column{.title = TitleOf(shown)};
  const auto* const text =
      std::ranges::find(kScheduleTextColumns, shown.identifier, &ScheduleTextColumn::identifier);
  if (text != std::end(kScheduleTextColumns)) {
    column.is_elastic = true;
    column.wanted = text->wanted;
    column.least = text->least;
    column.takes_rest = shown.identifier == kScheduleDescription;
  } else if (shown.content == TableColumn::Content::Count ||
             shown.content == TableColumn::Content::Amount) {
    column.alignment = PrintAlignment::Right;
  }
  return column;
}

}  // namespace

PrintDocument ScheduleDocument(const LDGRAccount& account, const ScheduleList& schedules,
                               const LDGRPreferences& preferences,
                               const RegisterPrintOptions& options) {
  const PrintedFigures figures(preferences);
  const std::vector<TableColumn> columns = DefaultScheduleColumns();
  const auto place_of = [&columns](std::string_view identifier) {
    const auto found = std::ranges::find(columns, identifier, &TableColumn::identifier);
    return static_cast<std::size_t>(found - columns.begin());
  };
  const std::size_t description = place_of(kScheduleDescription);
  const std::size_t amount = place_of(kScheduleAmount);
  PrintTable table;
  for (const TableColumn& column : columns) table.columns.push_back(EmptyColumn(column));
  table.note_column = description;
  std::vector<ReadyRows::Row> rows;
  AmountShapes amounts;
  for (const auto& schedule : schedules) {
    ReadyRows::Row printed;
    for (std::size_t column = 0; column < columns.size(); ++column) {
      std::string text = CellOfSchedule(&account, *schedule, columns[column].identifier,
                                        figures.Format(), options.today)
                             .text;
      table.columns[column].samples.push_back(text);
      printed.line.cells.push_back({column, std::move(text)});
    }
    if (options.splits) {
      AddSplitAmounts(*schedule, amounts);
      printed.details =
          SplitLines(*schedule, {description, 1, place_of(kScheduleToFrom), amount}, figures);
    }
    if (options.notes) printed.note = schedule->GetNotes();
    rows.push_back(std::move(printed));
  }
  for (std::string& sample : amounts.Samples(figures)) {
    table.columns[amount].samples.push_back(std::move(sample));
  }
  if (!rows.empty()) rows.back().is_kept_with_next = true;
  rows.push_back(
      {.line = {.cells = {{0, Counted(rows.size(), "{1} scheduled entry", "{1} scheduled entries"),
                           columns.size()}},
                .style = TextStyle::Strong},
       .has_rule_above = !rows.empty()});
  table.rows = std::make_shared<ReadyRows>(std::move(rows));

  PrintDocument document = DocumentOf(account, preferences, options.today);
  document.head.push_back({LocalizedText("Scheduled Entries"), ""});
  document.tables.push_back(std::move(table));
  return document;
}

}  // namespace tallyfold
