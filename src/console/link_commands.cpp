#include <cstdint>
#include <string>

#include "app/controller.h"
#include "app/entries/link_offers.h"
#include "app/entries/transfer_linking.h"
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

void TellNote(const Console& console) {
  const std::string& note = console.controller.transferLinking().State().note;
  if (!note.empty()) console.printer.Note(note);
}

bool LinkNamed(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() != 2 || !arguments.Has("account")) {
    throw CommandError("expected both OTHER and account=, or neither");
  }
  const auto account = AccountNamed(console, *arguments.Text("account"));
  const auto other = EntryNamed(console, *account, arguments.WordAt(1));
  return console.controller.transferLinking().Link(account, other);
}

void Link(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const std::string& word = arguments.WordAt(0);
  const auto entry = SelectEntryNamed(console, word);
  auto& linking = console.controller.transferLinking();
  const bool names_other = arguments.WordCount() > 1 || arguments.Has("account");
  if (!names_other && !linking.CanLink()) {
    throw CommandError("no entry of another account is clearly the other half of entry " + word +
                       "; link candidates " + word + " lists those that may be");
  }
  if (!(names_other ? LinkNamed(console, arguments) : linking.Entry_Link())) {
    const std::string& problem = linking.State().problem;
    throw CommandError(problem.empty() ? "nothing can be linked now" : problem);
  }
  ShowChangedEntries(console, account, {entry});
  TellNote(console);
}

void ListCandidates(Console& console, const Arguments& arguments) {
  SelectEntryNamed(console, arguments.WordAt(0));
  Table table({{"account"},
               {"number", Column::Align::Right},
               {"date"},
               {"description"},
               {"to/from"},
               {"amount", Column::Align::Right},
               {"days", Column::Align::Right}});
  EntryRows rows(console);
  for (const TransferPair& pair : console.controller.transferLinking().Candidates()) {
    table.Add({pair.other_account->GetName(), rows.NameOf(*pair.other_account, *pair.other),
               WriteDate(pair.other->GetDate()), pair.other->GetDescription(),
               pair.other->GetToFrom(), WriteAmount(pair.other->GetAmount()),
               WriteNumber(DaysBetween(pair))});
  }
  console.printer.Show(table);
}

void LinkOffered(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  auto& linking = console.controller.transferLinking();
  EntryList entries;
  for (const TransferPair& pair : linking.State().offers) entries.push_back(pair.entry);
  if (entries.empty()) throw CommandError("no imported entry is known to be half of a transfer");
  if (linking.State().offers.front().account != account) {
    throw CommandError("they were imported into another account than the selected one");
  }
  if (!linking.LinkOffered()) throw CommandError(linking.State().problem);
  ShowChangedEntries(console, account, entries);
  TellNote(console);
}

constexpr Option kLinkOptions[] = {
    {.name = "account", .value = "NAME|NUMBER", .help = "the account of the other entry"},
};

constexpr Command kLinkCommands[] = {
    {.name = "link",
     .words = "ENTRY [OTHER]",
     .least_words = 1,
     .most_words = 2,
     .options = kLinkOptions,
     .help = "makes one transfer of two entries with opposite amounts in two accounts",
     .example = "link 12 7 account=Savings",
     .run = Link},
    {.name = "link candidates",
     .words = "ENTRY",
     .least_words = 1,
     .most_words = 1,
     .help = "lists entries of other accounts that may be the other half, the nearest day first",
     .example = "link candidates 12",
     .run = ListCandidates},
    {.name = "link offered",
     .help = "links imported entries with those in other accounts that are certainly meant",
     .example = "link offered",
     .run = LinkOffered},
};

}  // namespace

std::span<const Command> LinkCommands() {
  return kLinkCommands;
}

}  // namespace tallyfold::console
