#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void Find(Console& console, const Arguments& arguments) {
  auto& find = console.controller.entryFind();
  find.Find(arguments.WordAt(0));
  if (find.State().text.empty()) throw CommandError("find: expected a text that is not empty");
  Table table(RegisterColumnsWithAccount());
  EntryRows rows(console);
  for (const FoundEntry& found : find.State().rows) {
    std::vector<std::string> cells = rows.CellsOf(found.account, found.entry);
    cells.insert(cells.begin(), found.account->GetName());
    table.Add(std::move(cells));
  }
  console.printer.Show(table);
  if (const std::size_t locked = find.State().locked; locked > 0) {
    console.printer.Note("not looked for in accounts that are locked: " +
                         WriteNumber(static_cast<std::int64_t>(locked)));
  }
}

void GoTo(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const DateNumber day = ReadDate(arguments.WordAt(0), "goto");
  if (!console.controller.dateJump().Go(day)) {
    throw CommandError("the register shows no entries; see 'filter'");
  }
  ShowChangedEntries(console, account, {console.controller.desk().SelectedEntry()},
                     OtherHalf::Unchanged);
}

constexpr Command kFindCommands[] = {
    {.name = "find",
     .words = "TEXT",
     .least_words = 1,
     .most_words = 1,
     .help = "finds entries in all accounts: by any text, by the amount, by the check number",
     .example = "find \"corner market\"",
     .run = Find},
    {.name = "goto",
     .words = "DATE",
     .least_words = 1,
     .most_words = 1,
     .help = "selects the first entry on or after a day, else the last",
     .example = "goto 2026-02-01",
     .run = GoTo},
};

}  // namespace

std::span<const Command> FindCommands() {
  return kFindCommands;
}

}  // namespace tallyfold::console
