#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_reveal.h"
#include "app/shell/undo.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/printer.h"
#include "console/table.h"
#include "ledger/ledger.h"

namespace tallyfold::console {
namespace {

std::string Why(History::Refusal refusal, const std::string& verb) {
  return refusal == History::Refusal::Locked
             ? "the next step was ordered in an account that is locked now"
             : "there is nothing to " + verb;
}

void TellOfHiddenEntry(Console& console) {
  const std::string& hidden = console.controller.entryReveal().State().text;
  if (!hidden.empty()) console.printer.Note(hidden);
}

void UndoStep(Console& console, const Arguments& /*arguments*/) {
  auto& undo = console.controller.undo();
  const auto lines = undo.UndoLines();
  if (!undo.UndoStep()) {
    throw CommandError(Why(console.controller.ledger().history().WhyNotUndo(), "undo"));
  }
  console.printer.Confirm("Undone: " + lines.front().name + ".");
  TellOfHiddenEntry(console);
}

void RedoStep(Console& console, const Arguments& /*arguments*/) {
  auto& undo = console.controller.undo();
  const auto lines = undo.RedoLines();
  if (!undo.RedoStep()) {
    throw CommandError(Why(console.controller.ledger().history().WhyNotRedo(), "redo"));
  }
  console.printer.Confirm("Redone: " + lines.front().name + ".");
  TellOfHiddenEntry(console);
}

void ShowHistory(Console& console, const Arguments& /*arguments*/) {
  Table table({{"step"}, {"account"}, {"state"}});
  const auto redone = console.controller.undo().RedoLines();
  for (auto line = redone.rbegin(); line != redone.rend(); ++line) {
    table.Add({line->name, line->account, line->can_be_reached ? "undone" : "undone, locked"});
  }
  for (const UndoLine& line : console.controller.undo().UndoLines()) {
    table.Add({line.name, line.account, line.can_be_reached ? "" : "locked"});
  }
  console.printer.Show(table);
}

constexpr Command kUndoCommands[] = {
    {.name = "undo",
     .help = "takes the last step back, whatever it was, as far back as the start of the session",
     .example = "undo",
     .run = UndoStep},
    {.name = "redo", .help = "does again what was undone last", .example = "redo", .run = RedoStep},
    {.name = "history",
     .help = "lists the steps that can be undone and those that were, the newest first",
     .example = "history",
     .run = ShowHistory},
};

}  // namespace

std::span<const Command> UndoCommands() {
  return kUndoCommands;
}

}  // namespace tallyfold::console
