#include <string>

#include "app/exchange/qif_import_controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/review_figures.h"
#include "console/review_table.h"
#include "console/values.h"

namespace tallyfold::console {
namespace {

std::string NothingFits(const LDGRQIFImportController& import, const LDGRQIFImportEntry& row) {
  return "row " + WriteNumber(import.PlaceOf(row)) +
         ": no entry of the account that is free has its amount within four days";
}

void ShowMatches(Console& console, const Arguments& arguments) {
  const auto& import = OpenReview(console);
  const auto row = ReviewedEntryNamed(console, arguments.WordAt(0));
  const EntryList fitting = import.MatchesFor(*row);
  if (fitting.empty()) throw CommandError(NothingFits(import, *row));
  ShowChangedEntries(console, SelectedAccount(console), fitting, OtherHalf::Unchanged);
}

void MatchWith(const Console& console, const Arguments& arguments, const std::string& chosen) {
  auto& import = OpenReview(console);
  if (arguments.NamesAllRows() || arguments.WordCount() > 1) {
    throw CommandError("with: names the entry for one row");
  }
  const auto row = ReviewedEntryNamed(console, arguments.WordAt(0));
  if (!import.MatchWith(row, EntryNamed(console, chosen))) {
    throw CommandError("with: entry " + chosen + " is not one of those that row " +
                       WriteNumber(import.PlaceOf(*row)) + " fits; matches " +
                       WriteNumber(import.PlaceOf(*row)) + " shows them");
  }
  ShowReviewedEntries(console, {row});
}

// What has nothing to be matched with is passed over where all are named.
void SetMatched(const Console& console, const Arguments& arguments, bool matched) {
  auto& import = OpenReview(console);
  if (arguments.NamesAllRows()) {
    import.MatchEntries(import.entries(), matched);
    return ShowReviewFigures(console);
  }
  const auto entries = ReviewedEntriesNamed(console, arguments);
  QifImportEntryList others;
  for (const auto& entry : entries) {
    if ((entry->GetMatched() != nullptr) != matched) others.push_back(entry);
  }
  const auto without = import.MatchEntries(others, matched);
  if (!without.empty()) {
    import.MatchEntries(others, false);
    throw CommandError(NothingFits(import, *without.front()));
  }
  ShowReviewedEntries(console, entries);
}

void Match(Console& console, const Arguments& arguments) {
  if (const auto chosen = arguments.Text("with")) return MatchWith(console, arguments, *chosen);
  SetMatched(console, arguments, true);
}

void Unmatch(Console& console, const Arguments& arguments) {
  SetMatched(console, arguments, false);
}

constexpr Option kMatchOptions[] = {
    {.name = "with", .value = "ENTRY", .help = "of the account, where several fit: see matches"}};

constexpr Command kMatchCommands[] = {
    {.name = "match",
     .words = "ROW...|FIRST-LAST|all",
     .least_words = 1,
     .most_words = 100,
     .options = kMatchOptions,
     .help = "takes entries of the account for those under review: they get the cleared mark",
     .example = "match 2 with=31",
     .run = Match,
     .works_in_review = true},
    {.name = "matches",
     .words = "ROW",
     .least_words = 1,
     .most_words = 1,
     .help = "shows what of the account an entry under review may be matched with, the best first",
     .example = "matches 2",
     .run = ShowMatches,
     .works_in_review = true},
    {.name = "unmatch",
     .words = "ROW...|FIRST-LAST|all",
     .least_words = 1,
     .most_words = 100,
     .help = "takes what was matched back",
     .example = "unmatch 2",
     .run = Unmatch,
     .works_in_review = true},
};

}  // namespace

std::span<const Command> MatchCommands() {
  return kMatchCommands;
}

}  // namespace tallyfold::console
