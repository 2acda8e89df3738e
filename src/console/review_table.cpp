#include "console/review_table.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

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
    case QifMatch::Reason::NearDate:
      return text + ", same amount on " + WriteDate(match.entry->GetDate());
  }
  if (match.in_file < 2 && match.in_account < 2) return text;
  return text + "; " + WriteNumber(match.in_file) + " in the file, " +
         WriteNumber(match.in_account) + " in the account";
}

// A line for what there is.
void AddCount(Table& table, std::string_view what, std::size_t count) {
  if (count > 0) table.Add({std::string(what), WriteNumber(static_cast<std::int64_t>(count))});
}

// A file may name thousands of types; the first ones tell enough.
constexpr std::size_t kMostNames = 20;

template <typename List, typename Text>
std::string Joined(const List& list, Text text) {
  std::string joined;
  const std::size_t shown = std::min(list.size(), kMostNames);
  for (std::size_t i = 0; i < shown; ++i) {
    joined += (i == 0 ? "" : ", ") + std::string(text(list[i]));
  }
  const std::size_t left = list.size() - shown;
  if (left == 0) return joined;
  return joined + " and " + WriteNumber(static_cast<std::int64_t>(left)) + " more";
}

void AddHints(Table& table, const QifHints& hints) {
  if (hints.is_unreadable) table.Add({"problem", "the file could not be read"});
  if (hints.is_unended)
    table.Add({"problem", "its list of accounts has no end; no entry was read"});
  if (!hints.source.empty()) table.Add({"entries are those of", hints.source});
  AddCount(table, "entries of the file that are not under review", hints.elsewhere);
  if (hints.first_date) {
    table.Add({"dates", WriteDate(*hints.first_date) + " to " + WriteDate(*hints.last_date)});
  }
  AddCount(table, "after today", hints.after_today);
  AddCount(table, "without a date", hints.missing_dates);
  AddCount(table, "dates that cannot be read", hints.unreadable_dates);
  AddCount(table, "years of two digits read as they stand", hints.short_years);
  if (hints.unreadable_dates > 0 || hints.short_years > 0) {
    const std::string titles = Joined(hints.fitting_formats, [](const QifDateFormat& each) {
      return QifDateFormatTitle(each.format);
    });
    table.Add({"formats that read every date", titles.empty() ? "none" : titles});
  }
  AddCount(table, "amounts that cannot be read and become 0", hints.unread_amounts);
  AddCount(table, "check numbers that are text and become 0", hints.text_numbers);
  AddCount(table, "check numbers too large, left out", hints.lost_numbers);
  AddCount(table, "splits left out, of ten lines or more", hints.long_splits);
  AddCount(table, "splits left out, of both signs", hints.mixed_splits);
  AddCount(table, "splits left out, of lines that do not fit", hints.uneven_splits);
  AddCount(table, "accounts left out, without entries to import", hints.left_out_accounts);
  if (!hints.left_out_lists.empty()) {
    table.Add(
        {"lists left out", Joined(hints.left_out_lists, [](const auto& name) { return name; })});
  }
  AddCount(table, "lists whose last record has no end and is left out", hints.unended_lists);
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

void ShowReviewFigures(const Console& console) {
  const auto& import = console.controller.sharedQIFImportController();
  const QifImportReviewState& review = import.Review();
  const QifImportOptionsState& options = import.Options();
  Table table({{"review"}, {"value"}});
  table.Add({"account in the file",
             options.account_items[static_cast<std::size_t>(options.typed.account)].title});
  const auto count = [](std::size_t number) {
    return WriteNumber(static_cast<std::int64_t>(number));
  };
  table.Add({"marked", count(review.marked_count) + " of " + count(review.entry_count)});
  table.Add({"total", WriteAmount(review.total)});
  if (!import.types().empty()) {
    table.Add(
        {"new types", Joined(import.types(), [](const auto& type) { return type->GetName(); })});
  }
  AddHints(table, review.hints);
  console.printer.Show(table);
}

}  // namespace tallyfold::console
