#include <algorithm>
#include <charconv>

#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/register_filter.h"
#include "console/table.h"
#include "console/values.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"
#include "model/account.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

bool TakesText(const FilterType& type) {
  return type.rule == FilterType::Rule::SearchText;
}

// By number, or by name in any case.
const FilterType& FilterNamed(std::string_view word) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool is_number = error == std::errc() && end == word.data() + word.size();
  const auto types = FilterTypes();
  const auto found = std::find_if(types.begin(), types.end(), [&](const FilterType& type) {
    return is_number ? type.number == number : CompareIgnoringCase(type.name, word) == 0;
  });
  if (found == types.end()) {
    throw CommandError("expected a filter as 'filters' lists them, not " + Quoted(word));
  }
  return *found;
}

// What the filter in force lets through.
void ShowFilter(const Console& console) {
  const RegisterFilter in_force = FilterInForce(console);
  const EntryList entries = in_force.filter->Filter(SelectedAccount(console)->GetEntries());
  double sum = 0.0;
  for (const auto& entry : entries) sum += entry->GetAmount();
  Table table(
      {{"filter"}, {"text"}, {"entries", Column::Align::Right}, {"sum", Column::Align::Right}});
  table.Add({in_force.filter->GetName(), in_force.text,
             WriteNumber(static_cast<std::int64_t>(entries.size())), WriteAmount(sum)});
  console.printer.Show(table);
}

void ListFilters(Console& console, const Arguments& /*arguments*/) {
  const std::int32_t in_force = FilterInForce(console).type;
  Table table({{"number", Column::Align::Right}, {"name"}, {"takes"}, {"in force"}});
  for (const FilterType& type : FilterTypes()) {
    table.Add({WriteNumber(type.number), std::string(type.name), TakesText(type) ? "text" : "",
               WriteYesNo(type.number == in_force)});
  }
  console.printer.Show(table);
}

void ChooseFilter(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() == 0) return ShowFilter(console);
  static_cast<void>(SelectedAccount(console));
  RequireShownRegister(console, "filter");
  const FilterType& type = FilterNamed(arguments.WordAt(0));
  const bool has_text = arguments.WordCount() == 2;
  if (has_text && !TakesText(type)) {
    throw CommandError("filter: " + Quoted(type.name) + " takes no text");
  }
  console.controller.search().Filter_Select(type.number);
  if (has_text) console.controller.search().Search_Field(arguments.WordAt(1));
  ShowFilter(console);
}

void Search(Console& console, const Arguments& arguments) {
  const FilterType* type = FilterTypeWithNumber(FilterInForce(console).type);
  RequireShownRegister(console, "search");
  if (type != nullptr && !TakesText(*type)) {
    throw CommandError("search: the filter in force, " + Quoted(type->name) +
                       ", takes no text; choose one that does, as in 'filter General'");
  }
  console.controller.search().Search_Field(arguments.WordAt(0));
  ShowFilter(console);
}

void CancelSearch(Console& console, const Arguments& /*arguments*/) {
  static_cast<void>(SelectedAccount(console));
  RequireShownRegister(console, "search cancel");
  console.controller.search().Search_Cancel();
  ShowFilter(console);
}

constexpr Command kFilterCommands[] = {
    {.name = "filters",
     .help = "lists the filters there are and which is in force",
     .example = "filters",
     .run = ListFilters},
    {.name = "filter",
     .words = "[NUMBER|NAME [TEXT]]",
     .most_words = 2,
     .help = "chooses which entries the register shows; alone, tells which filter is in force",
     .example = "filter \"This Month\"",
     .run = ChooseFilter},
    {.name = "search",
     .words = "TEXT",
     .least_words = 1,
     .most_words = 1,
     .help = "shows the entries in which the filter in force finds the text",
     .example = "search coffee",
     .run = Search},
    {.name = "search cancel",
     .help = "empties the search, or turns a filter without a text off",
     .example = "search cancel",
     .run = CancelSearch},
};

}  // namespace

std::span<const Command> FilterCommands() {
  return kFilterCommands;
}

}  // namespace tallyfold::console
