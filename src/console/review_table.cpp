#include "console/review_table.h"

#include <limits>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/exchange/qif_import_controller.h"
#include "app/exchange/qif_import_table_data.h"
#include "console/command.h"
#include "console/command_error.h"
#include "console/entry_table.h"
#include "console/printer.h"
#include "console/shown_columns.h"
#include "console/table.h"
#include "console/values.h"
#include "model/entry_type.h"

namespace tallyfold::console {
namespace {

std::string MatchText(const QifMatch& match) {
  std::string text = WriteNumber(match.entry->GetNumber());
  switch (match.reason) {
    case QifMatch::Reason::CheckNumber:
      text += ", same check number";
      break;
    case QifMatch::Reason::ToFrom:
      text += ", same to/from";
      break;
    case QifMatch::Reason::Description:
      text += ", same description";
      break;
    case QifMatch::Reason::AmountAndDate:
      text += ", same amount and date";
      break;
    case QifMatch::Reason::NearDate:
      return text + ", same amount on " + WriteDate(match.entry->GetDate());
  }
  if (match.in_file < 2 && match.in_account < 2) return text;
  return text + "; " + WriteNumber(match.in_file) + " in the file, " +
         WriteNumber(match.in_account) + " in the account";
}

std::string AccountText(const LDGRQIFImportController& import, const LDGRQIFImportEntry& entry) {
  if (entry.GetMatched() != nullptr) {
    return "matched with " + WriteNumber(entry.GetMatched()->GetNumber());
  }
  const auto match = import.MatchOf(entry);
  std::string text(TextOf(entry.GetUnmarkedReason()));
  if (match) text += (text.empty() ? "" : "; ") + MatchText(*match);
  return text;
}

}  // namespace

LDGRQIFImportController& OpenReview(const Console& console) {
  auto& import = console.controller.sharedQIFImportController();
  if (!import.IsReviewing()) {
    throw CommandError("no import is under review; import PATH begins one");
  }
  return import;
}

std::shared_ptr<LDGRQIFImportEntry> ReviewedEntryNamed(const Console& console,
                                                       std::string_view word) {
  const auto& import = console.controller.sharedQIFImportController();
  const std::int32_t place = ReadNumber(word, "row", 1, std::numeric_limits<std::int32_t>::max());
  auto entry = import.EntryAtPlace(place);
  if (entry == nullptr) {
    throw CommandError("there is no row " + std::string(word) + " in the review");
  }
  return entry;
}

QifImportEntryList ReviewedEntriesNamed(const Console& console, const Arguments& arguments) {
  const auto& import = console.controller.sharedQIFImportController();
  QifImportEntryList named;
  std::unordered_set<const LDGRQIFImportEntry*> known;
  const auto add = [&](const std::shared_ptr<LDGRQIFImportEntry>& entry) {
    if (known.insert(entry.get()).second) named.push_back(entry);
  };
  for (std::size_t i = 0; i < arguments.WordCount(); ++i) {
    const std::string& word = arguments.WordAt(i);
    const NumberRange places =
        ReadNumberRange(word, "row", 1, std::numeric_limits<std::int32_t>::max());
    if (places.first == places.last) {
      add(ReviewedEntryNamed(console, WriteNumber(places.first)));
      continue;
    }
    bool is_any = false;
    for (const auto& entry : import.entries()) {
      const std::int32_t place = import.PlaceOf(*entry);
      if (place < places.first || place > places.last) continue;
      add(entry);
      is_any = true;
    }
    if (!is_any) throw CommandError("there is no row in " + word + " in the review");
  }
  return named;
}

void ShowReviewedEntries(const Console& console, const QifImportEntryList& entries) {
  const auto& import = console.controller.sharedQIFImportController();
  static const ShownColumns kShown({{{"import"}, "import"},
                                    {{"date"}, "date"},
                                    {{"check", Column::Align::Right}, "check"},
                                    {{"type"}, "type"},
                                    {{"description"}, "description"},
                                    {{"to/from"}, "toFrom"},
                                    {{"amount", Column::Align::Right}, "amount"},
                                    {{"cleared"}, "cleared"}},
                                   ReviewColumns());
  std::vector<Column> columns = {{"row", Column::Align::Right}};
  kShown.AddTo(columns);
  columns.push_back({"in the account"});
  Table table(std::move(columns));
  const TableFormat format{kPlainDays, console.controller.desk().preferences()};
  for (const auto& entry : entries) {
    std::vector<std::string> cells = {WriteNumber(import.PlaceOf(*entry))};
    kShown.AddTo(cells,
                 [&](std::string_view column) { return CellOfReviewed(*entry, column, format); });
    cells.push_back(AccountText(import, *entry));
    table.Add(std::move(cells));
  }
  console.printer.Show(table);
}

}  // namespace tallyfold::console
