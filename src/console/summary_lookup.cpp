#include "console/summary_lookup.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "app/controller.h"
#include "app/views/account_summary_tab.h"
#include "console/command_error.h"
#include "console/lookup.h"
#include "console/words.h"
#include "model/account.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

std::optional<std::int32_t> WholeNumber(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::size_t SummaryNamed(const Console& console, std::string_view word) {
  const AccountSummaryList& rows = console.controller.summaries().State().summaries;
  if (const auto number = WholeNumber(word)) {
    if (*number >= 1 && static_cast<std::size_t>(*number) <= rows.size()) {
      return static_cast<std::size_t>(*number) - 1;
    }
  }
  for (const bool exactly : {true, false}) {
    std::vector<std::size_t> alike;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      const std::string& name = rows[row]->name();
      if (exactly ? name == word : CompareIgnoringCase(name, word) == 0) alike.push_back(row);
    }
    if (alike.size() == 1) return alike.front();
    if (alike.size() > 1) {
      throw CommandError(std::to_string(alike.size()) + " summaries are named " + Quoted(word) +
                         "; use the number");
    }
  }
  throw CommandError("there is no summary " + Quoted(word) + "; summaries lists them");
}

}  // namespace

LDGRAccountSummary& ChosenSummary(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  if (arguments.WordCount() > 0) {
    (void)console.controller.summaries().Select(SummaryNamed(console, arguments.WordAt(0)));
  }
  const auto& summary = account->selectedAccountSummary();
  if (summary == nullptr) throw CommandError("the account has no summary; summary add makes one");
  return *summary;
}

}  // namespace tallyfold::console
