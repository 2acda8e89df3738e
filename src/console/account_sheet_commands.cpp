#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "app/accounts/account_editing.h"
#include "app/controller.h"
#include "console/account_sheet.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

using Typed = AccountEditSheetState::Typed;

constexpr std::int32_t kAll = 0;
constexpr std::int32_t kLatest = 1;
constexpr std::int32_t kOwn = 2;
constexpr std::int32_t kMostLatest = 100000;

// The lists of the user's own texts that the sheet holds.
struct OwnList {
  std::string_view name;
  std::vector<std::string> Typed::*texts;
};

constexpr std::array kOwnLists = {
    OwnList{"debit", &Typed::debit_descriptions},
    OwnList{"deposit", &Typed::deposit_descriptions},
    OwnList{"transfer", &Typed::transfer_descriptions},
    OwnList{"to", &Typed::tos},
    OwnList{"from", &Typed::froms},
};

std::string StyleText(std::int32_t style, std::int32_t count) {
  if (style == kAll) return "all";
  return style == kOwn ? "own" : "the latest " + WriteNumber(count);
}

void AddFacts(const AccountFacts& facts, Table& table) {
  const auto count = [](std::size_t number) {
    return WriteNumber(static_cast<std::int64_t>(number));
  };
  const auto day = [](const std::optional<DateNumber>& of) { return of ? WriteDate(*of) : ""; };
  table.Add({"entries", count(facts.entries)});
  table.Add({"first entry", day(facts.first)});
  table.Add({"last entry", day(facts.last)});
  table.Add({"scheduled entries", count(facts.schedules)});
  table.Add({"next scheduled", day(facts.next_scheduled)});
  table.Add({"next check", WriteNumber(facts.next_check)});
  table.Add({"balance now", WriteAmount(facts.balance)});
}

void ShowSheet(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  OpenAccountSheet(console);
  const AccountEditSheetState& state = console.controller.accountSheet().State();
  const Typed& typed = state.typed;
  Table table({{"field"}, {"value", Column::Align::Left, Column::Long::GoesOn}});
  table.Add({"number", WriteNumber(account->GetNumber())});
  table.Add({"name", typed.name});
  table.Add({"balance", WriteAmount(typed.starting_balance.value_or(0.0))});
  table.Add({"check", WriteNumber(typed.starting_check_number.value_or(0))});
  table.Add({"password", WriteYesNo(!typed.password.empty())});
  table.Add(
      {"descriptions", StyleText(typed.descriptions_style, typed.descriptions_count.value_or(0))});
  table.Add({"payees", StyleText(typed.to_froms_style, typed.to_froms_count.value_or(0))});
  for (const OwnList& list : kOwnLists) {
    for (const std::string& text : typed.*list.texts) table.Add({std::string(list.name), text});
  }
  if (state.facts) AddFacts(*state.facts, table);
  console.printer.Show(table);
}

// What descriptions= or payees= gives: all, own or how many of the latest.
void TypeStyle(const Arguments& arguments, std::string_view option, std::int32_t& style,
               std::optional<std::int32_t>& count) {
  const auto text = arguments.Text(option);
  if (!text) return;
  if (*text == "all" || *text == "own") {
    style = *text == "all" ? kAll : kOwn;
    return;
  }
  if (text->empty() || text->front() < '0' || text->front() > '9') {
    throw CommandError(std::string(option) + ": expected all, own or how many of the latest, not " +
                       Quoted(*text));
  }
  count = ReadNumber(*text, option, 1, kMostLatest);
  style = kLatest;
}

// Splits "to|Bakery" into the list and the text.
std::pair<const OwnList*, std::string> ReadOwnText(std::string_view word, std::string_view option) {
  const std::size_t bar = word.find('|');
  const auto list = std::find_if(kOwnLists.begin(), kOwnLists.end(), [&](const OwnList& each) {
    return bar != std::string_view::npos && each.name == word.substr(0, bar);
  });
  if (list == kOwnLists.end() || bar + 1 == word.size()) {
    throw CommandError(std::string(option) +
                       ": expected debit|TEXT, deposit|TEXT, transfer|TEXT, " +
                       "to|TEXT or from|TEXT, not " + Quoted(word));
  }
  return {&*list, std::string(word.substr(bar + 1))};
}

void TypeOwnTexts(const Arguments& arguments, Typed& typed) {
  const auto place = [](std::vector<std::string>& texts, const std::string& text) {
    return std::find_if(texts.begin(), texts.end(), [&text](const std::string& each) {
      return CompareIgnoringCase(each, text) == 0;
    });
  };
  for (const std::string& word : arguments.AllTexts("drop")) {
    const auto [list, text] = ReadOwnText(word, "drop");
    auto& texts = typed.*list->texts;
    const auto found = place(texts, text);
    if (found == texts.end()) throw CommandError("drop: there is no " + Quoted(word));
    texts.erase(found);
  }
  for (const std::string& word : arguments.AllTexts("add")) {
    const auto [list, text] = ReadOwnText(word, "add");
    auto& texts = typed.*list->texts;
    if (place(texts, text) != texts.end()) throw CommandError("add: " + Quoted(word) + " is there");
    texts.push_back(text);
  }
}

void TypePasswords(Console& console, const Arguments& arguments, Typed& typed) {
  const auto password = arguments.Text("password");
  auto again = arguments.Text("again");
  if (again && !password) throw CommandError("again: expected password= with it");
  if (!password) return;
  if (!again && console.questions.AsksPerson()) {
    again = console.questions.AskSecret("The same password again: ");
  }
  if (!again) throw CommandError("expected again= with the same password");
  typed.password = *password;
  typed.password_again = *again;
}

void ImportFrom(Console& console, const Arguments& arguments, std::string_view option,
                bool (AccountEditing::*import)(const LDGRAccount&)) {
  const auto name = arguments.Text(option);
  if (!name) return;
  const auto other = AccountNamed(console, *name);
  if (!(console.controller.accountSheet().*import)(*other)) {
    throw CommandError(std::string(option) + ": " + other->GetName() + " is locked");
  }
}

void EditAccount(Console& console, const Arguments& arguments) {
  static_cast<void>(SelectedAccount(console));
  OpenAccountSheet(console);
  LDGRController& controller = console.controller;
  ImportFrom(console, arguments, "typesfrom", &AccountEditing::ImportTypesFrom);
  ImportFrom(console, arguments, "descriptionsfrom", &AccountEditing::ImportDescriptionsFrom);
  ImportFrom(console, arguments, "payeesfrom", &AccountEditing::ImportToFromsFrom);
  Typed typed = controller.accountSheet().State().typed;
  TypeAccountFields(arguments, typed);
  TypePasswords(console, arguments, typed);
  TypeStyle(arguments, "descriptions", typed.descriptions_style, typed.descriptions_count);
  TypeStyle(arguments, "payees", typed.to_froms_style, typed.to_froms_count);
  TypeOwnTexts(arguments, typed);
  FinishAccountSheet(console, std::move(typed));
  ShowSheet(console, arguments);
}

constexpr Option kAccountOptions[] = {
    kAccountName,
    kAccountBalance,
    kAccountCheck,
    {.name = "password", .value = "TEXT", .help = "hides the account, \"\" for none"},
    {.name = "again", .value = "TEXT", .help = "the same password"},
    {.name = "descriptions",
     .value = "all|own|NUMBER",
     .help = "which descriptions are offered: every one, the own list, so many of the latest"},
    {.name = "payees",
     .value = "all|own|NUMBER",
     .help = "the same for whom money goes to or from"},
    {.name = "add",
     .value = "LIST|TEXT",
     .help = "adds to an own list: debit, deposit or transfer descriptions, to or from",
     .is_repeatable = true},
    {.name = "drop",
     .value = "LIST|TEXT",
     .help = "takes out of an own list",
     .is_repeatable = true},
    {.name = "typesfrom",
     .value = "ACCOUNT",
     .help = "adds the entry types of another account that this one lacks"},
    {.name = "descriptionsfrom", .value = "ACCOUNT", .help = "adds its own descriptions"},
    {.name = "payeesfrom", .value = "ACCOUNT", .help = "adds whom its money goes to or from"},
};

constexpr Command kAccountSheetCommands[] = {
    {.name = "account show",
     .help = "shows what the account sheet holds of the selected account; see also types",
     .example = "account show",
     .run = ShowSheet},
    {.name = "account edit",
     .options = kAccountOptions,
     .help = "changes the selected account through its sheet",
     .example = "account edit name=Household balance=120.00 payees=own add=\"to|Bakery\"",
     .run = EditAccount},
};

}  // namespace

std::span<const Command> AccountSheetCommands() {
  return kAccountSheetCommands;
}

}  // namespace tallyfold::console
