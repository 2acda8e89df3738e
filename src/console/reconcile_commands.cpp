#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/balance_field.h"
#include "app/views/reconcile_tab.h"
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

// By mode.
constexpr std::array<std::string_view, 6> kModes = {"balance",    "today", "resolved",
                                                    "unresolved", "shown", "selected"};

std::int32_t ModeNamed(std::string_view word) {
  const auto* const named = std::ranges::find(kModes, word);
  if (named != kModes.end()) return static_cast<std::int32_t>(named - kModes.begin());
  std::int32_t number = -1;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data(), end, number);
  if (error == std::errc() && rest == end && number >= 0 &&
      number < static_cast<std::int32_t>(kModes.size())) {
    return number;
  }
  std::string names;
  for (const std::string_view name : kModes)
    names += (names.empty() ? "" : ", ") + std::string(name);
  throw CommandError("expected one of " + names + " or its number from 0 to 5, not " +
                     Quoted(word));
}

void ShowBalance(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  if (arguments.WordCount() > 0) {
    console.controller.balanceField().AccountBalance_PopUp(ModeNamed(arguments.WordAt(0)));
  }
  const BalanceFieldState field = console.controller.balanceField().State();
  const auto mode = static_cast<std::size_t>(field.mode);
  Table table({{"mode"}, {"shows"}, {"amount", Column::Align::Right}});
  table.Add({std::string(kModes[mode]), field.mode_items[mode].title,
             field.amount ? WriteAmount(*field.amount) : "-"});
  console.printer.Show(table);
}

void ShowFigures(const Console& console, const ReconcileTabState& state) {
  const Reconciliation& figures = state.figures;
  const auto count = [](std::size_t number) {
    return WriteNumber(static_cast<std::int64_t>(number));
  };
  Table table({{"figure"}, {"entries", Column::Align::Right}, {"amount", Column::Align::Right}});
  table.Add({"statement", "", WriteAmount(figures.statement_balance)});
  table.Add({"debits", count(figures.resolved_debit_count), WriteAmount(figures.resolved_debits)});
  table.Add(
      {"deposits", count(figures.resolved_deposit_count), WriteAmount(figures.resolved_deposits)});
  table.Add({"resolved", count(figures.resolved_debit_count + figures.resolved_deposit_count),
             WriteAmount(figures.resolved_balance)});
  table.Add({"unresolved", count(figures.unresolved_count), WriteAmount(figures.unresolved_sum)});
  table.Add({"difference", "",
             figures.IsBalanced() ? state.difference : WriteAmount(figures.difference)});
  console.printer.Show(table);
}

void ShowReconciliation(const Console& console) {
  const auto account = SelectedAccount(console);
  const ReconcileTabState& state = console.controller.reconcileTab().State();
  ShowFigures(console, state);
  if (!state.explanation) return;
  Table explanation({{"explanation"}});
  explanation.Add({state.explanation_text});
  console.printer.Show(explanation);
  if (!state.explanation->entries.empty()) {
    ShowChangedEntries(console, account, state.explanation->entries, OtherHalf::Unchanged);
  }
}

void Reconcile(Console& console, const Arguments& /*arguments*/) {
  ShowReconciliation(console);
}

void SetStatement(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  const double amount = ReadAmount(arguments.WordAt(0), "statement");
  if (!console.controller.reconcileTab().StatementBalance_EndEditing(amount)) {
    throw CommandError("the statement balance was not taken");
  }
  ShowReconciliation(console);
}

void TurnMarkOver(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  const auto entry = console.controller.desk().SelectedEntry();
  if (!console.controller.reconcileTab().TurnClearedOverAndMoveOn()) {
    throw CommandError("no row is selected; select entry ENTRY selects one");
  }
  ShowChangedEntries(console, account, {entry}, OtherHalf::Unchanged);
}

constexpr Command kReconcileCommands[] = {
    {.name = "balance",
     .words = "[MODE]",
     .most_words = 1,
     .help = "shows the balance below the register, or chooses which one it is: balance, today, "
             "resolved, unresolved, shown (of the rows), selected (at the selected row)",
     .example = "balance resolved",
     .run = ShowBalance},
    {.name = "statement",
     .words = "AMOUNT",
     .least_words = 1,
     .most_words = 1,
     .help = "sets the balance of the bank's statement, and shows what is missing",
     .example = "statement 1834.20",
     .run = SetStatement},
    {.name = "reconcile",
     .help = "compares the cleared entries with the statement, and explains the difference where "
             "one entry or set of entries stands out",
     .example = "reconcile",
     .run = Reconcile},
    {.name = "clear next",
     .help = "turns the cleared mark of the selected row over and selects the next row",
     .example = "clear next",
     .run = TurnMarkOver},
};

}  // namespace

std::span<const Command> ReconcileCommands() {
  return kReconcileCommands;
}

}  // namespace tallyfold::console
