#include "console/shown_columns.h"

#include <algorithm>
#include <cstdint>

#include "console/values.h"
#include "model/date_number.h"

namespace tallyfold::console {
namespace {

std::string Write(const TableCell& cell, TableColumn::Content content) {
  if (content == TableColumn::Content::Mark) return cell.mark == TableCell::Mark::Set ? "yes" : "";
  if (!cell.number) return cell.text;
  switch (content) {
    case TableColumn::Content::Day:
      return WriteDate(static_cast<DateNumber>(*cell.number));
    case TableColumn::Content::Count:
      return WriteNumber(static_cast<std::int64_t>(*cell.number));
    case TableColumn::Content::Amount:
      return WriteAmount(*cell.number);
    case TableColumn::Content::Text:
    case TableColumn::Content::Mark:
      break;
  }
  return cell.text;
}

}  // namespace

ShownColumns::ShownColumns(std::initializer_list<Shown> columns,
                           const std::vector<TableColumn>& of_table) {
  for (const Shown& shown : columns) {
    const auto found = std::ranges::find(of_table, shown.identifier, &TableColumn::identifier);
    if (found != of_table.end()) columns_.push_back({shown.printed, *found});
  }
}

void ShownColumns::AddTo(std::vector<Column>& columns) const {
  for (const Each& each : columns_) columns.push_back(each.printed);
}

void ShownColumns::AddTo(std::vector<std::string>& cells,
                         const std::function<TableCell(std::string_view)>& cell_of) const {
  for (const Each& each : columns_) {
    cells.push_back(Write(cell_of(each.column.identifier), each.column.content));
  }
}

}  // namespace tallyfold::console
