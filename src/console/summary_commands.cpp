#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/face/blank_text.h"
#include "app/views/account_summary_tab.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/summary_lookup.h"
#include "console/summary_options.h"
#include "console/table.h"
#include "console/values.h"
#include "console/words.h"
#include "model/account.h"
#include "model/text.h"
#include "summaries/account_summary.h"
#include "summaries/summary_choices.h"
#include "summaries/summary_layout.h"

namespace tallyfold::console {
namespace {

namespace choices = summary_choices;

// How dates are written here, also in titles.
constexpr std::string_view kDateFormat = "%Y-%m-%d";

// --- Showing ------------------------------------------------------------------------------------

enum class Rows { All, Selected };

void ListSummaries(const Console& console, Rows rows) {
  const AccountSummaryTabState& state = console.controller.summaries().State();
  Table table({{"number", Column::Align::Right}, {"name"}, {"range"}, {"periods"}, {"selected"}});
  for (std::size_t row = 0; row < state.summaries.size(); ++row) {
    const LDGRAccountSummary& summary = *state.summaries[row];
    const bool is_selected = static_cast<std::int32_t>(row) == state.selected_row;
    if (rows == Rows::Selected && !is_selected) continue;
    table.Add({WriteNumber(static_cast<std::int64_t>(row) + 1), summary.name(),
               ChoiceText(choices::kDateRanges, summary.dateRangeStyle()),
               ChoiceText(choices::kPeriodStyles, summary.subtotalPeriodStyle()),
               is_selected ? "yes" : ""});
  }
  console.printer.Show(table);
}

void ListAllSummaries(Console& console, const Arguments& /*arguments*/) {
  (void)SelectedAccount(console);
  ListSummaries(console, Rows::All);
}

void ShowHead(const Console& console, const SummaryLayout::Head& head) {
  Table table({{"account"},
               {"summary"},
               {"range"},
               {"first"},
               {"last"},
               {"start balance", Column::Align::Right},
               {"end balance", Column::Align::Right}});
  table.Add({head.account, head.name, head.range, WriteDate(head.first), WriteDate(head.last),
             WriteAmount(head.start_balance), WriteAmount(head.end_balance)});
  console.printer.Show(table);
}

// Twenty marks for the longest bar, behind a minus sign where it goes to the left.
std::string BarText(double bar) {
  const auto length = static_cast<std::size_t>(std::lround(std::abs(bar) * 20.0));
  return (bar < 0.0 ? "-" : "") + std::string(length, '#');
}

void ShowPeriods(const Console& console, const SummaryLayout& layout) {
  std::vector<Column> columns;
  for (const std::string& title : layout.period_columns) {
    columns.push_back({title, columns.empty() ? Column::Align::Left : Column::Align::Right});
  }
  columns.push_back({"Entries", Column::Align::Right});
  if (layout.has_bars) columns.push_back({"Bar"});
  Table table(columns);
  const auto add = [&](const std::string& title, const SummaryLayout::Amounts& amounts,
                       std::size_t count, std::string bar) {
    table.Add({title, WriteAmount(amounts.debits), WriteAmount(amounts.deposits),
               WriteAmount(amounts.transfers), WriteAmount(amounts.total),
               WriteNumber(static_cast<std::int64_t>(count)), std::move(bar)});
  };
  for (const auto& line : layout.periods) {
    add(line.title, line.amounts, line.count, layout.has_bars ? BarText(line.bar) : "");
  }
  add(layout.total_title, layout.total, layout.total_count, "");
  console.printer.Show(table);
  if (layout.left_out_periods.empty()) return;
  Table note({{"Note"}});
  note.Add({layout.left_out_periods});
  console.printer.Show(note);
}

void ShowTotalsAndBlocks(const Console& console, const SummaryLayout& layout) {
  Table totals({{"Sum"}, {"Amount", Column::Align::Right}});
  for (const auto& [title, amount] : layout.totals) totals.Add({title, WriteAmount(amount)});
  console.printer.Show(totals);
  for (const SummaryLayout::Block& block : layout.blocks) {
    Table table({{block.title},
                 {layout.block_columns[1], Column::Align::Right},
                 {layout.block_columns[2], Column::Align::Right},
                 {layout.block_columns[3], Column::Align::Right}});
    for (const auto& line : block.lines) {
      table.Add({line.name, WriteNumber(static_cast<std::int64_t>(line.count)),
                 WriteAmount(line.amount), WriteAmount(line.share * 100.0) + "%"});
    }
    console.printer.Show(table);
  }
}

void ShowSummary(Console& console, const Arguments& arguments) {
  const LDGRAccountSummary& summary = ChosenSummary(console, arguments);
  // Asked for first, because that is what brings the summary up to date.
  (void)console.controller.summaries().State();
  const SummaryLayout layout = LayOutSummary(summary, kDateFormat);
  ShowHead(console, layout.head);
  ShowPeriods(console, layout);
  ShowTotalsAndBlocks(console, layout);
  Table check({{"Check"}, {"Amount", Column::Align::Right}});
  const bool has_amount = layout.check == SummaryLayout::Check::EntriesLeftOut;
  check.Add({layout.check_title, has_amount ? WriteAmount(layout.left_out) : ""});
  console.printer.Show(check);
}

// --- The entries of a line ----------------------------------------------------------------------

// By the title of a period, that of the total, or a name in one of the blocks.
SummaryLine LineNamed(const SummaryLayout& layout, std::string_view word,
                      const std::optional<std::string>& block_title) {
  using Kind = SummaryLine::Kind;
  std::vector<SummaryLine> alike;
  if (!block_title) {
    for (std::size_t i = 0; i < layout.periods.size(); ++i) {
      if (layout.periods[i].title == word) alike.push_back({Kind::Period, i, 0});
    }
    if (layout.total_title == word) alike.push_back({Kind::Total, 0, 0});
  }
  bool is_known = !block_title;
  for (std::size_t block = 0; block < layout.blocks.size(); ++block) {
    const auto& [title, lines, subject] = layout.blocks[block];
    if (block_title && CompareIgnoringCase(title, *block_title) != 0) continue;
    is_known = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (lines[i].name == word) alike.push_back({Kind::Block, i, block});
    }
  }
  if (!is_known) throw CommandError("in: the summary has no " + Quoted(*block_title));
  if (alike.empty())
    throw CommandError("there is no line " + Quoted(word) + "; summary shows them");
  if (alike.size() > 1) {
    throw CommandError(std::to_string(alike.size()) + " lines are named " + Quoted(word) +
                       "; in=\"By Type\" or another says which");
  }
  return alike.front();
}

void ShowEntriesOfLine(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  auto& summaries = console.controller.summaries();
  (void)summaries.State();
  const auto& summary = account->selectedAccountSummary();
  if (summary == nullptr) throw CommandError("the account has no summary; summary add makes one");
  // The lines are named as this program prints them.
  const SummaryLine line =
      LineNamed(LayOutSummary(*summary, kDateFormat), arguments.WordAt(0), arguments.Text("in"));
  ShowChangedEntries(console, account, summaries.ShowEntries(line), OtherHalf::Unchanged);
}

// --- Adding and removing ------------------------------------------------------------------------

void RequireName(const Arguments& arguments) {
  if (arguments.WordCount() > 0 && IsBlank(arguments.WordAt(0))) {
    throw CommandError("expected a name that is not blank");
  }
}

void AddSummary(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  RequireName(arguments);
  LDGRController& controller = console.controller;
  if (controller.summaries().Add() == nullptr) throw CommandError("no summary can be added");
  if (arguments.WordCount() > 0) (void)controller.summaries().Rename(arguments.WordAt(0));
  ListSummaries(console, Rows::Selected);
}

void DuplicateSummary(Console& console, const Arguments& arguments) {
  (void)ChosenSummary(console, arguments);
  if (console.controller.summaries().Duplicate() == nullptr) {
    throw CommandError("the summary cannot be copied");
  }
  ListSummaries(console, Rows::Selected);
}

void RenameSummary(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  RequireName(arguments);
  if (!console.controller.summaries().Rename(arguments.WordAt(0))) {
    throw CommandError("the summary cannot be renamed");
  }
  ListSummaries(console, Rows::Selected);
}

void RemoveSummary(Console& console, const Arguments& arguments) {
  (void)ChosenSummary(console, arguments);
  if (!console.controller.summaries().Remove()) throw CommandError("nothing was removed");
  ListSummaries(console, Rows::Selected);
}

constexpr Option kEntriesOfLineOptions[] = {
    {.name = "in", .value = "TITLE", .help = "the table of the line, such as \"By To/From\""}};

// Tables of options live elsewhere, so this one is made when it is first asked for.
const std::vector<Command>& TableOfSummaryCommands() {
  static const std::vector<Command> kSummaryCommands = {
      {.name = "summaries",
       .help = "lists the summaries of the selected account",
       .example = "summaries",
       .run = ListAllSummaries},
      {.name = "summary",
       .words = "[NUMBER|NAME]",
       .most_words = 1,
       .help = "selects a summary and shows it; alone, shows the selected one",
       .example = "summary \"All Entries, Year To Date\"",
       .run = ShowSummary},
      {.name = "summary entries",
       .words = "LINE",
       .least_words = 1,
       .most_words = 1,
       .options = kEntriesOfLineOptions,
       .help =
           "goes to the register and shows there the entries that a line of the selected summary "
           "counts: a period, Total, or a name",
       .example = "summary entries Salary",
       .run = ShowEntriesOfLine},
      {.name = "summary options",
       .words = "[NUMBER|NAME]",
       .most_words = 1,
       .help = "selects a summary and shows what it counts",
       .example = "summary options",
       .run = ShowSummaryOptions},
      {.name = "summary set",
       .words = "[NUMBER|NAME]",
       .most_words = 1,
       .options = SummaryOptions(),
       .help = "changes what the selected summary, or the one named, counts and shows",
       .example = "summary set range=\"Last Quarter\" periods=weeks deposits=no",
       .run = SetSummaryOptions},
      {.name = "summary add",
       .words = "[NAME]",
       .most_words = 1,
       .help = "adds a summary of this month and selects it",
       .example = "summary add \"Trip to Rome\"",
       .run = AddSummary},
      {.name = "summary duplicate",
       .words = "[NUMBER|NAME]",
       .most_words = 1,
       .help = "copies a summary and selects the copy",
       .example = "summary duplicate \"Expenses, Year To Date\"",
       .run = DuplicateSummary},
      {.name = "summary rename",
       .words = "NAME",
       .least_words = 1,
       .most_words = 1,
       .help = "gives the selected summary another name",
       .example = "summary rename Food",
       .run = RenameSummary},
      {.name = "summary remove",
       .words = "[NUMBER|NAME]",
       .most_words = 1,
       .help = "removes a summary; the last one stays",
       .example = "summary remove Food",
       .run = RemoveSummary},
  };
  return kSummaryCommands;
}

}  // namespace

std::span<const Command> SummaryCommands() {
  return TableOfSummaryCommands();
}

}  // namespace tallyfold::console
