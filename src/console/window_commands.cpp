#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_reveal.h"
#include "app/shell/tabs.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/password_sheets.h"
#include "console/printer.h"
#include "console/table.h"
#include "ledger/transfer_links.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

constexpr Tab kTabs[] = {Tab::Entry, Tab::Reconcile, Tab::Schedule, Tab::Summary};

void ShowTabs(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  if (arguments.WordCount() > 0) {
    const auto tab = TabWithIdentifier(arguments.WordAt(0));
    if (!tab) {
      throw CommandError("expected entry, reconcile, schedule or summary, not " +
                         Quoted(arguments.WordAt(0)));
    }
    controller.tabs().Select(*tab);
  }
  Table table({{"tab"}, {"state"}});
  for (const Tab tab : kTabs) {
    const bool is_selected = controller.tabs().State().selected == tab;
    table.Add({std::string(TabIdentifier(tab)), is_selected ? "selected" : ""});
  }
  console.printer.Show(table);
}

void ShowSelectedEntry(Console& console) {
  const auto account = SelectedAccount(console);
  if (const auto entry = console.controller.desk().SelectedEntry()) {
    ShowChangedEntries(console, account, {entry}, OtherHalf::Unchanged);
  }
}

void ShowOtherHalf(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  const auto entry = SelectEntryNamed(console, arguments.WordAt(0));
  const auto half = controller.transferLinks().Transfer_LinkedEntry(entry.get());
  if (half == nullptr) throw CommandError("entry " + arguments.WordAt(0) + " has no other half");
  if (!controller.entryReveal().ShowOtherHalf()) {
    RequireSelected(console, controller.desk().AccountWithNumber(entry->GetTransferAccount()));
    controller.desk().SelectEntry(half);
  }
  if (const std::string& hidden = controller.entryReveal().State().text; !hidden.empty()) {
    console.printer.Note(hidden);
  }
  ShowSelectedEntry(console);
}

void Reveal(Console& console, const Arguments& /*arguments*/) {
  LDGRController& controller = console.controller;
  if (controller.entryReveal().State().text.empty())
    throw CommandError("no filter hides the last entry");
  controller.entryReveal().ShowHiddenEntry();
  ShowSelectedEntry(console);
}

constexpr Command kWindowCommands[] = {
    {.name = "tab",
     .words = "[NAME]",
     .most_words = 1,
     .help = "lists the tabs of the window, or changes to one",
     .example = "tab reconcile",
     .run = ShowTabs},
    {.name = "other",
     .words = "ENTRY",
     .least_words = 1,
     .most_words = 1,
     .help = "goes to the other half of a transfer, in its account",
     .example = "other 12",
     .run = ShowOtherHalf},
    {.name = "reveal",
     .help = "takes the filter away that hides the entry just added, changed or gone to",
     .example = "reveal",
     .run = Reveal},
};

}  // namespace

std::span<const Command> WindowCommands() {
  return kWindowCommands;
}

}  // namespace tallyfold::console
