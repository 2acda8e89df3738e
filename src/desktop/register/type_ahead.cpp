#include "desktop/register/type_ahead.h"

#include "desktop/texts.h"
#include "model/amount_input.h"
#include "model/text.h"
#include "model/typed_day.h"

namespace tallyfold::desktop {
namespace {

// The first row of which it does not hold; the rows of which it does come first.
template <typename Holds>
std::size_t PartitionPoint(std::size_t count, const Holds& holds) {
  std::size_t first = 0;
  while (count > 0) {
    const std::size_t half = count / 2;
    if (holds(first + half)) {
      first += half + 1;
      count -= half + 1;
    } else {
      count = half;
    }
  }
  return first;
}

// Those without a number, such as entries that are no checks, come after all others.
std::optional<std::size_t> RowOfNumber(const TableState& table, std::string_view column,
                                       std::size_t rows, double wanted) {
  const TableDataSource& source = *table.DataSource();
  const bool descends = table.IndicatesDescending();
  const std::size_t found = PartitionPoint(rows, [&](std::size_t row) {
    const std::optional<double> number = source.tableView(column, row).number;
    if (!number) return descends;
    return descends ? *number > wanted : *number < wanted;
  });
  return found < rows ? std::optional(found) : std::nullopt;
}

std::optional<std::size_t> RowOfText(const TableState& table, std::string_view column,
                                     std::size_t rows, std::string_view typed) {
  const TableDataSource& source = *table.DataSource();
  const std::string folded = FoldCase(typed);
  const auto begins = [&](const std::string& text) { return FoldCase(text).starts_with(folded); };
  const bool descends = table.IndicatesDescending();
  const std::size_t found = PartitionPoint(rows, [&](std::size_t row) {
    const std::string text = source.tableView(column, row).text;
    const int order = CompareIgnoringCase(text, typed);
    return descends ? order > 0 && !begins(text) : order < 0;
  });
  if (found == rows || !begins(source.tableView(column, found).text)) return std::nullopt;
  return found;
}

}  // namespace

std::optional<std::size_t> RowOfTyped(const TableState& table, std::string_view typed,
                                      std::string_view date_format, int near) {
  const TableDataSource* source = table.DataSource();
  const auto index = table.ColumnWithIdentifier(table.HighlightedColumn());
  if (source == nullptr || !index || typed.empty()) return std::nullopt;
  const TableColumn& column = table.Columns()[*index];
  const std::size_t rows = source->numberOfRowsInTableView();
  switch (column.content) {
    case TableColumn::Content::Text:
      return RowOfText(table, column.identifier, rows, typed);
    case TableColumn::Content::Day: {
      std::optional<DateNumber> from;
      if (near >= 0 && static_cast<std::size_t>(near) < rows) {
        const TableCell cell = source->tableView(column.identifier, static_cast<std::size_t>(near));
        if (cell.number) from = static_cast<DateNumber>(*cell.number);
      }
      const auto day = ReadTypedDay(typed, date_format, from);
      if (!day) return std::nullopt;
      return RowOfNumber(table, column.identifier, rows, *day);
    }
    case TableColumn::Content::Count:
    case TableColumn::Content::Amount: {
      const auto number = ParsePlainOrUsersAmount(typed);
      if (!number) return std::nullopt;
      return RowOfNumber(table, column.identifier, rows, *number);
    }
    case TableColumn::Content::Mark:
      break;
  }
  return std::nullopt;
}

const std::string& TypedLetters::Add(const QString& letters, std::uint64_t time,
                                     int longest_pause) {
  const bool goes_on = time >= last_ && time - last_ <= static_cast<std::uint64_t>(longest_pause);
  if (!goes_on) typed_.clear();
  last_ = time;
  typed_ += ToUtf8(letters);
  return typed_;
}

}  // namespace tallyfold::desktop
