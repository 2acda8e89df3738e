#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/entry_reveal.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/sheet_slot.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_options.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/review_table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void TellIfAny(const Console& console, const std::string& note) {
  if (!note.empty()) console.printer.Note(note);
}

// What a sheet that stays open tells; `problem` is its own text.
[[noreturn]] void RefuseToStore(const std::optional<Problem>& problem) {
  throw CommandError(problem ? problem->text : "the entry stays as it was");
}

void FinishDebitSheet(Console& console, const Arguments& arguments) {
  TypeIntoDebitSheet(console, arguments);
  if (!console.controller.entries().Debit().OK())
    RefuseToStore(console.controller.entries().Debit().State().problem);
}

void FinishDepositSheet(Console& console, const Arguments& arguments) {
  TypeIntoDepositSheet(console, arguments);
  if (!console.controller.entries().Deposit().OK()) {
    RefuseToStore(console.controller.entries().Deposit().State().problem);
  }
}

void FinishTransferSheet(Console& console, const Arguments& arguments) {
  TypeIntoTransferSheet(console, arguments);
  if (!console.controller.entries().Transfer().OK()) {
    RefuseToStore(console.controller.entries().Transfer().State().problem);
  }
  TellIfAny(console, console.controller.entries().Transfer().State().note);
}

// A new entry of nothing at all is a slip.
void RequireAmount(const Arguments& arguments, std::string_view expected) {
  const bool has_split = !arguments.AllTexts("split").empty();
  if (!arguments.Has("amount") && !has_split)
    throw CommandError("expected " + std::string(expected));
}

void TellOfHiddenEntry(const Console& console) {
  TellIfAny(console, console.controller.entryReveal().State().text);
}

void AddEntry(Console& console, const Arguments& arguments, EntryKind kind,
              void (*finish)(Console&, const Arguments&)) {
  const auto account = SelectedAccount(console);
  if (!console.controller.entries().New(kind)) throw CommandError("no entry can be added now");
  finish(console, arguments);
  // Not the selected one: a filter may hide what was added.
  ShowChangedEntries(console, account, {console.controller.entries().Edited().entry});
  TellOfHiddenEntry(console);
}

void AddDebit(Console& console, const Arguments& arguments) {
  RequireAmount(arguments, "amount= or split=");
  AddEntry(console, arguments, EntryKind::Debit, FinishDebitSheet);
}

void AddDeposit(Console& console, const Arguments& arguments) {
  RequireAmount(arguments, "amount= or split=");
  AddEntry(console, arguments, EntryKind::Deposit, FinishDepositSheet);
}

std::shared_ptr<LDGRAccount> UnlockedAccountNamed(const Console& console, const std::string& name) {
  auto account = AccountNamed(console, name);
  if (account->IsLocked()) throw CommandError("the account " + Quoted(name) + " is locked");
  return account;
}

// Whichever account is selected, the transfer is made in the one that the money comes from.
void AddTransferBetween(Console& console, const Arguments& arguments) {
  const auto account = UnlockedAccountNamed(console, *arguments.Text("from"));
  (void)UnlockedAccountNamed(console, *arguments.Text("to"));
  if (!console.controller.entries().NewTransferIn(account)) {
    throw CommandError("no entry can be added now");
  }
  FinishTransferSheet(console, arguments);
  ShowChangedEntries(console, account, {console.controller.entries().Edited().entry});
  if (account == console.controller.desk().SelectedAccount()) TellOfHiddenEntry(console);
}

void AddTransfer(Console& console, const Arguments& arguments) {
  RequireAmount(arguments, "amount=");
  if (!arguments.Has("to") && !arguments.Has("from")) throw CommandError("expected to= or from=");
  if (arguments.Has("to") && arguments.Has("from")) return AddTransferBetween(console, arguments);
  AddEntry(console, arguments, EntryKind::Transfer, FinishTransferSheet);
}

// Types into the sheet that is open and confirms it.
void FinishOpenSheet(Console& console, const Arguments& arguments) {
  switch (console.controller.sheets().Current()) {
    case Sheet::Debit:
      FinishDebitSheet(console, arguments);
      break;
    case Sheet::Deposit:
      FinishDepositSheet(console, arguments);
      break;
    default:
      FinishTransferSheet(console, arguments);
      break;
  }
}

void EditReviewedEntry(Console& console, const Arguments& arguments) {
  auto& import = console.controller.sharedQIFImportController();
  const auto entry = ReviewedEntryNamed(console, arguments.WordAt(0));
  import.SelectEntry(entry);
  if (!import.ImportEntry_Change()) throw CommandError("the entry cannot be edited now");
  FinishOpenSheet(console, arguments);
  ShowReviewedEntries(console, {entry});
}

void EditEntry(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  if (controller.sharedQIFImportController().IsReviewing()) {
    return EditReviewedEntry(console, arguments);
  }
  const auto account = SelectedAccount(console);
  const auto entry = SelectEntryNamed(console, arguments.WordAt(0));
  if (!controller.entries().Entry_Edit()) {
    throw CommandError("entry " + arguments.WordAt(0) + " is of no kind and cannot be edited");
  }
  FinishOpenSheet(console, arguments);
  ShowChangedEntries(console, account, {entry});
  TellOfHiddenEntry(console);
}

std::size_t Ask(Console& console, const std::string& question, std::span<const std::string> buttons,
                std::size_t safe) {
  return console.questions.Ask(question, "", buttons, safe);
}

// False when the user would rather not.
bool ConfirmRemoval(Console& console) {
  static const std::string kButtons[] = {"OK", "Cancel"};
  LDGRController& controller = console.controller;
  if (controller.sheets().Current() != Sheet::EntryRemoveConfirm) return true;
  if (Ask(console, controller.entryRemoval().Confirm().question, kButtons, 1) == 0) {
    controller.entryRemoval().EntryRemoveConfirm_OK();
    return true;
  }
  controller.entryRemoval().EntryRemoveConfirm_Cancel();
  return false;
}

bool ConfirmTransferRemoval(Console& console) {
  static const std::string kButtons[] = {"Yes", "No", "Cancel"};
  LDGRController& controller = console.controller;
  if (controller.sheets().Current() != Sheet::TransferEntryRemoveConfirm) return true;
  switch (Ask(console, controller.entryRemoval().Transfer().question, kButtons, 2)) {
    case 0:
      controller.entryRemoval().TransferEntryRemoveConfirm_Yes();
      return true;
    case 1:
      controller.entryRemoval().TransferEntryRemoveConfirm_No();
      return true;
    default:
      controller.entryRemoval().TransferEntryRemoveConfirm_Cancel();
      return false;
  }
}

// Nothing is removed. A person has just said so; a program that gave no answer must hear of it.
void GiveUp(Console& console, const std::string& answers) {
  if (!console.questions.AsksPerson()) throw CommandError("nothing was removed; " + answers);
  console.printer.Confirm("Nothing was removed.");
}

void RemoveEntry(Console& console, const Arguments& arguments) {
  const EntryList entries = AllEntriesNamed(console, arguments);
  const bool is_one = arguments.WordCount() == 1 && entries.size() == 1;
  if (is_one) SelectShownEntry(console, entries.front(), arguments.WordAt(0));
  LDGRController& controller = console.controller;
  controller.entryRemoval().EntriesRemoveConfirm_Begin(entries);
  if (!ConfirmRemoval(console)) {
    return GiveUp(console, entries.size() > 1 ? "answer OK before the command removes the entries"
                                              : "answer OK before the command removes the entry");
  }
  if (!ConfirmTransferRemoval(console)) {
    return GiveUp(console,
                  "after answer OK, answer Yes keeps the other half of the transfer and answer No "
                  "removes it too");
  }
  console.printer.Confirm(
      is_one ? "Removed entry " + WriteNumber(entries.front()->GetNumber()) + "."
             : "Removed " + WriteNumber(static_cast<std::int64_t>(entries.size())) + " entries.");
  TellIfAny(console, controller.entryRemoval().Confirm().note);
}

void ClearEntries(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const bool cleared = arguments.YesNo("cleared").value_or(true);
  const EntryList entries = AllEntriesNamed(console, arguments);
  console.controller.entryOrders().SetCleared(entries, cleared);
  ShowChangedEntries(console, account, entries, OtherHalf::Unchanged);
}

constexpr Option kClearOptions[] = {
    {.name = "cleared", .value = "yes|no", .help = "no takes the mark away again"},
};

// Tables of options live elsewhere, so this one is made when it is first asked for.
const std::vector<Command>& Commands() {
  static const std::vector<Command> kEntryCommands = {
      {.name = "debit",
       .options = DebitOptions(),
       .help = "adds money paid out of the selected account",
       .example = "debit amount=31.40 to=\"Corner Market\" type=\"Debit Card\"",
       .run = AddDebit},
      {.name = "deposit",
       .options = DepositOptions(),
       .help = "adds money paid into the selected account",
       .example = "deposit amount=2450.00 from=\"Harbour Books\" type=\"Direct Deposit\"",
       .run = AddDeposit},
      {.name = "transfer",
       .options = TransferOptions(),
       .help = "moves money between the selected account and another, or from= one to= another",
       .example = "transfer amount=200.00 from=\"Joint checking\" to=Savings",
       .run = AddTransfer},
      {.name = "edit",
       .words = "ENTRY",
       .least_words = 1,
       .most_words = 1,
       .options = EditOptions(),
       .help = "changes an entry by its number or its row (#3), or one under review",
       .example = "edit 12 amount=32.40 notes=\"with the tip\"",
       .answers = "of a resolved entry: Cancel, Change",
       .run = EditEntry,
       .works_in_review = true},
      {.name = "remove",
       .words = "ENTRY...|FIRST-LAST|shown",
       .least_words = 1,
       .most_words = 100,
       .help = "removes entries, after a question for all of them (see answer)",
       .example = "remove 12 20-24",
       .answers = "OK, Cancel; of other halves of transfers: Yes (keep them), No, Cancel",
       .run = RemoveEntry},
      {.name = "clear",
       .words = "ENTRY...|FIRST-LAST|shown",
       .least_words = 1,
       .most_words = 100,
       .options = kClearOptions,
       .help = "marks entries as cleared by the bank",
       .example = "clear 12 20-24",
       .run = ClearEntries},
  };
  return kEntryCommands;
}

}  // namespace

std::span<const Command> EntryCommands() {
  return Commands();
}

}  // namespace tallyfold::console
