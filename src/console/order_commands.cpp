#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_reveal.h"
#include "app/views/entry_details.h"
#include "app/views/registers.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/entry_type.h"
#include "registers/copied_rows.h"

namespace tallyfold::console {
namespace {

// What an order that came to nothing tells.
void Require(const Console& console, bool is_done, const std::string& otherwise) {
  if (is_done) return;
  const std::string& problem = console.controller.entryOrders().State().problem;
  throw CommandError(problem.empty() ? otherwise : problem);
}

void ShowResult(const Console& console, OtherHalf other_half) {
  const EntryOrdersState& state = console.controller.entryOrders().State();
  ShowChangedEntries(console, state.account, state.entries, other_half);
  if (!state.note.empty()) console.printer.Note(state.note);
  const std::string& hidden = console.controller.entryReveal().State().text;
  if (!hidden.empty()) console.printer.Note(hidden);
}

void Duplicate(Console& console, const Arguments& arguments) {
  SelectEntryNamed(console, arguments.WordAt(0));
  Require(console, console.controller.entryOrders().Entry_Duplicate(),
          "nothing can be duplicated now");
  ShowResult(console, OtherHalf::Changed);
}

// What `kind` calls the kind of an entry; "" for an entry of no kind.
std::string KindWord(const LDGRAccountEntry& entry) {
  if (!entry.IsTransfer()) return KindText(entry);
  return entry.IsTransferOrigin() ? "to" : "from";
}

void ChangeKind(Console& console, const Arguments& arguments) {
  const std::string& word = arguments.WordAt(0);
  const auto entry = SelectEntryNamed(console, word);
  const std::string& wanted = arguments.WordAt(1);
  auto& orders = console.controller.entryOrders();
  if (!orders.CanChangeKind()) throw CommandError("entry " + word + " is not of one kind");
  const std::vector<std::string> kinds = entry->IsTransfer()
                                             ? std::vector<std::string>{"to", "from"}
                                             : std::vector<std::string>{"debit", "deposit"};
  if (wanted != kinds[0] && wanted != kinds[1]) {
    throw CommandError("expected " + kinds[0] + " or " + kinds[1] + " for a " + KindText(*entry) +
                       ", not " + Quoted(wanted));
  }
  if (wanted == KindWord(*entry)) throw CommandError("entry " + word + " is that already");
  Require(console, orders.Entry_ChangeKind(), "no kind can be changed now");
  ShowResult(console, OtherHalf::Changed);
}

void Move(Console& console, const Arguments& arguments) {
  const EntryList entries = AllEntriesNamed(console, arguments);
  const auto name = arguments.Text("account");
  if (!name) throw CommandError("expected account=");
  Require(
      console,
      console.controller.entryOrders().MoveTo(entries, AccountNamed(console, *name)->GetNumber()),
      "nothing can be moved now");
  ShowResult(console, OtherHalf::Unchanged);
}

std::int32_t TypeNamed(const LDGRAccount& account, std::string_view name,
                       const EntryList& entries) {
  if (name == "none") return -1;
  const bool is_deposit = !entries.empty() && entries.front()->IsDeposit();
  const auto wanted =
      is_deposit ? account.DepositEntryTypeForName(name) : account.DebitEntryTypeForName(name);
  if (wanted != nullptr) return wanted->GetNumber();
  throw CommandError("there is no type " + Quoted(name) + " for a " +
                     (is_deposit ? "deposit" : "debit") + "; types lists them");
}

void SetType(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const EntryList entries = AllEntriesNamed(console, arguments);
  const auto name = arguments.Text("type");
  if (!name) throw CommandError("expected type=");
  const std::int32_t type = TypeNamed(*account, *name, entries);
  auto& orders = console.controller.entryOrders();
  if (!orders.SetType(entries, type)) {
    const std::string& note = orders.State().note;
    Require(console, false, note.empty() ? "they have that type already" : note);
  }
  ShowResult(console, OtherHalf::Unchanged);
}

void Sum(Console& console, const Arguments& arguments) {
  const EntriesSum sum =
      SumOf(AllEntriesNamed(console, arguments), console.controller.desk().preferences());
  Table table({{"entries", Column::Align::Right}, {"sum", Column::Align::Right}});
  table.Add({WriteNumber(static_cast<std::int64_t>(sum.count)), WriteAmount(sum.amount)});
  console.printer.Show(table);
}

void Copy(Console& console, const Arguments& arguments) {
  const auto& shown = console.controller.registers().currentTableDataSource();
  std::vector<std::size_t> rows;
  const EntryList entries = AllEntriesNamed(console, arguments);
  std::unordered_map<const LDGRAccountEntry*, std::size_t> places;
  for (std::size_t row = 0; row < shown.GetEntries().size(); ++row) {
    places.emplace(shown.GetEntries()[row].get(), row);
  }
  for (const auto& entry : entries) {
    const auto place = places.find(entry.get());
    if (place == places.end()) {
      throw CommandError("the filter in force hides entry " + WriteNumber(entry->GetNumber()) +
                         "; see 'filter'");
    }
    rows.push_back(place->second);
  }
  console.printer.ShowText(RowsAsText(shown, shown.VisibleTableColumns(), rows));
}

constexpr Option kMoveOptions[] = {
    {.name = "account", .value = "NAME|NUMBER", .help = "where they belong"},
};

constexpr Option kTypeOptions[] = {
    {.name = "type", .value = "NAME", .help = "a type of the account, or none"},
};

constexpr Command kOrderCommands[] = {
    {.name = "duplicate",
     .words = "ENTRY",
     .least_words = 1,
     .most_words = 1,
     .help = "adds a copy, dated as new entries are and not cleared; a check gets the next number",
     .example = "duplicate 12",
     .run = Duplicate},
    {.name = "kind",
     .words = "ENTRY debit|deposit|to|from",
     .least_words = 2,
     .most_words = 2,
     .help = "makes a deposit of a debit or turns it round, and a transfer the other way",
     .example = "kind 12 deposit",
     .answers = "of a resolved entry: Cancel, Change",
     .run = ChangeKind},
    {.name = "move",
     .words = "ENTRY...|FIRST-LAST|shown",
     .least_words = 1,
     .most_words = 100,
     .options = kMoveOptions,
     .help = "moves entries to another account, under new numbers",
     .example = "move 12 14 account=Savings",
     .run = Move},
    {.name = "retype",
     .words = "ENTRY...|FIRST-LAST|shown",
     .least_words = 1,
     .most_words = 100,
     .options = kTypeOptions,
     .help = "gives a type to all of them that are of its kind",
     .example = "retype 12 14 type=Groceries",
     .run = SetType},
    {.name = "sum",
     .words = "ENTRY...|FIRST-LAST|shown",
     .least_words = 1,
     .most_words = 100,
     .help = "adds up entries",
     .example = "sum 12 14 15",
     .run = Sum},
    {.name = "copy",
     .words = "ENTRY...|FIRST-LAST|shown",
     .least_words = 1,
     .most_words = 100,
     .help = "writes rows of the window's register as it shows them, with tabs between the columns",
     .example = "copy 12 14",
     .run = Copy},
};

}  // namespace

std::span<const Command> OrderCommands() {
  return kOrderCommands;
}

}  // namespace tallyfold::console
