#include "console/review_table.h"

#include <limits>
#include <string>

#include "app/controller.h"
#include "app/exchange/qif_import_controller.h"
#include "console/command_error.h"
#include "console/entry_table.h"
#include "console/printer.h"
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

}  // namespace

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

void ShowReviewedEntries(const Console& console, const QifImportEntryList& entries) {
  const auto& import = console.controller.sharedQIFImportController();
  Table table({{"row", Column::Align::Right},
               {"import"},
               {"date"},
               {"check", Column::Align::Right},
               {"type"},
               {"description"},
               {"to/from"},
               {"amount", Column::Align::Right},
               {"cleared"},
               {"in the account"}});
  for (const auto& entry : entries) {
    const auto& type = entry->GetActualType();
    const auto match = import.MatchOf(*entry);
    table.Add({WriteNumber(import.PlaceOf(*entry)), entry->GetImport() ? "yes" : "",
               WriteDate(entry->GetDate()),
               entry->IsCheck() ? WriteNumber(entry->GetCheckNumber()) : "",
               type == nullptr ? "" : type->GetName(), entry->GetDescription(), entry->GetToFrom(),
               WriteAmount(entry->GetAmount()), entry->GetCleared() ? "yes" : "",
               match ? MatchText(*match) : ""});
  }
  console.printer.Show(table);
}

}  // namespace tallyfold::console
