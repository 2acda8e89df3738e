#include "console/summary_options.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "app/controller.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "console/command_error.h"
#include "console/printer.h"
#include "console/summary_lookup.h"
#include "console/table.h"
#include "console/values.h"
#include "console/words.h"
#include "model/text.h"
#include "summaries/account_summary.h"
#include "summaries/summary_choices.h"

namespace tallyfold::console {
namespace {

namespace choices = summary_choices;
using Typed = AccountSummarySheetState::Typed;

template <typename Choices>
std::int32_t ReadChoice(const Choices& from, std::string_view text, std::string_view what) {
  std::string names;
  for (const auto& choice : from) {
    if (CompareIgnoringCase(choice.name, text) == 0) return choice.number;
    names += (names.empty() ? "" : ", ") + std::string(choice.name);
  }
  throw CommandError(std::string(what) + ": expected one of " + names + ", not " + Quoted(text));
}

constexpr SummaryChoice kMarks[] = {
    {choices::kWithMark, "yes"}, {choices::kWithoutMark, "no"}, {choices::kBoth, "both"}};
constexpr std::string_view kNoFilter = "none";

// An option that is yes or no, and one of which the entries with a mark, without or both count.
struct Switch {
  std::string_view name;
  bool (LDGRAccountSummary::*get)() const noexcept;
  bool Typed::*typed;
};
constexpr Switch kSwitches[] = {
    {"debits", &LDGRAccountSummary::showDebits, &Typed::show_debits},
    {"deposits", &LDGRAccountSummary::showDeposits, &Typed::show_deposits},
    {"transfers", &LDGRAccountSummary::showTransfers, &Typed::show_transfers},
    {"types", &LDGRAccountSummary::subtotalTypes, &Typed::subtotal_types},
    {"descriptions", &LDGRAccountSummary::subtotalDescriptions, &Typed::subtotal_descriptions},
    {"payees", &LDGRAccountSummary::subtotalToFroms, &Typed::subtotal_to_froms},
};
struct MarkOption {
  std::string_view name;
  std::int32_t (LDGRAccountSummary::*get)() const noexcept;
  std::int32_t Typed::*typed;
};
constexpr MarkOption kSummaryMarkOptions[] = {
    {"resolved", &LDGRAccountSummary::showResolved, &Typed::resolved},
    {"tax", &LDGRAccountSummary::showTaxDeductible, &Typed::tax_deductible},
    {"checks", &LDGRAccountSummary::showChecks, &Typed::checks},
};

void ReadRange(const Arguments& arguments, Typed& typed) {
  const auto range = arguments.Text("range");
  const auto start = arguments.Date("start");
  const auto end = arguments.Date("end");
  if (range) typed.date_range = ReadChoice(choices::kDateRanges, *range, "range");
  if (!start && !end) return;
  if (range && typed.date_range != choices::kCustom) {
    throw CommandError("start= and end= are for range=custom");
  }
  typed.date_range = choices::kCustom;
  if (start) typed.start = *start;
  if (end) typed.end = *end;
}

void ReadFilter(const Arguments& arguments, Typed& typed) {
  const auto filter = arguments.Text("filter");
  const auto text = arguments.Text("text");
  if (filter) {
    typed.filter = *filter != kNoFilter;
    if (typed.filter) {
      typed.filter_type = ReadChoice(choices::kFilterTypes, *filter, "filter");
    }
  } else if (text) {
    typed.filter = !text->empty();
  }
  if (text) typed.filter_text = *text;
}

// Puts what the arguments say into what is typed into the sheet.
void ReadOptions(const Arguments& arguments, Typed& typed) {
  ReadRange(arguments, typed);
  if (const auto periods = arguments.Text("periods")) {
    typed.period_style = ReadChoice(choices::kPeriodStyles, *periods, "periods");
  }
  if (const auto show = arguments.Text("show")) {
    typed.show_style = ReadChoice(choices::kShowStyles, *show, "show");
  }
  for (const Switch& each : kSwitches) {
    if (const auto yes = arguments.YesNo(each.name)) typed.*each.typed = *yes;
  }
  for (const MarkOption& each : kSummaryMarkOptions) {
    if (const auto which = arguments.Text(each.name)) {
      typed.*each.typed = ReadChoice(kMarks, *which, each.name);
    }
  }
  ReadFilter(arguments, typed);
}

constexpr Option kSummarySetOptions[] = {
    {.name = "range", .value = "NAME", .help = "such as \"Month To Date\", or custom"},
    {.name = "start", .value = "DATE", .help = "the first day of a custom range"},
    {.name = "end", .value = "DATE", .help = "its last day"},
    {.name = "periods",
     .value = "NAME",
     .help = "days, weeks, months, quarters, years or \"whole range\""},
    {.name = "show", .value = "NAME", .help = "tables, or \"tables and bars\""},
    {.name = "debits", .value = "yes|no", .help = "whether debits count"},
    {.name = "deposits", .value = "yes|no", .help = "whether deposits count"},
    {.name = "transfers", .value = "yes|no", .help = "whether transfers count"},
    {.name = "types", .value = "yes|no", .help = "whether there are sums by type"},
    {.name = "descriptions", .value = "yes|no", .help = "whether there are sums by description"},
    {.name = "payees", .value = "yes|no", .help = "whether there are sums by payee and payer"},
    {.name = "resolved", .value = "yes|no|both", .help = "which entries count"},
    {.name = "tax", .value = "yes|no|both", .help = "whether tax-deductible ones count"},
    {.name = "checks", .value = "yes|no|both", .help = "whether checks count"},
    {.name = "filter",
     .value = "NAME|none",
     .help = "where the text is looked for, such as description"},
    {.name = "text", .value = "TEXT", .help = "what the entries that count contain"},
};

}  // namespace

std::span<const Option> SummaryOptions() {
  return kSummarySetOptions;
}

void ShowSummaryOptions(Console& console, const Arguments& arguments) {
  const LDGRAccountSummary& summary = ChosenSummary(console, arguments);
  (void)console.controller.summaries().State();
  Table table({{"option"}, {"value", Column::Align::Left, Column::Long::GoesOn}});
  table.Add({"name", summary.name()});
  table.Add({"range", ChoiceText(choices::kDateRanges, summary.dateRangeStyle())});
  table.Add({"start", WriteDate(summary.startDate())});
  table.Add({"end", WriteDate(summary.endDate())});
  table.Add({"periods", ChoiceText(choices::kPeriodStyles, summary.subtotalPeriodStyle())});
  table.Add({"show", ChoiceText(choices::kShowStyles, summary.showStyle())});
  for (const Switch& each : kSwitches) {
    table.Add({std::string(each.name), WriteYesNo((summary.*each.get)())});
  }
  for (const MarkOption& each : kSummaryMarkOptions) {
    table.Add({std::string(each.name), ChoiceText(kMarks, (summary.*each.get)())});
  }
  table.Add({"filter", summary.filter() ? ChoiceText(choices::kFilterTypes, summary.filterType())
                                        : std::string(kNoFilter)});
  table.Add({"text", std::string(summary.filterData().StringValue())});
  console.printer.Show(table);
}

void SetSummaryOptions(Console& console, const Arguments& arguments) {
  // Read once beforehand: a value that will not do must not leave another summary selected.
  Typed scratch;
  ReadOptions(arguments, scratch);
  (void)ChosenSummary(console, arguments);
  LDGRController& controller = console.controller;
  if (!controller.summarySheet().Open()) throw CommandError("the summary cannot be changed");
  Typed typed = controller.summarySheet().State().typed;
  ReadOptions(arguments, typed);
  controller.summarySheet().Read(std::move(typed));
  if (!controller.summarySheet().OK()) throw CommandError("the summary cannot be changed");
  ShowSummaryOptions(console, arguments);
}

}  // namespace tallyfold::console
