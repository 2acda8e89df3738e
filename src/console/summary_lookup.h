#pragma once

#include <cstdint>
#include <string>

#include "console/command.h"
#include "console/console.h"
#include "console/values.h"
#include "summaries/account_summary.h"
#include "summaries/summary_choices.h"

namespace tallyfold::console {

// Selects the summary that the first word names, if there is one: by its number in the list, by
// exact name, or by a name that only one has when case is ignored. The summary selected then.
// Throws CommandError for none.
[[nodiscard]] LDGRAccountSummary& ChosenSummary(Console& console, const Arguments& arguments);

// The name of a choice; the number itself where it has none.
template <typename Choices>
[[nodiscard]] std::string ChoiceText(const Choices& from, std::int32_t number) {
  const auto* choice = summary_choices::WithNumber(from, number);
  return choice != nullptr ? std::string(choice->name) : WriteNumber(number);
}

}  // namespace tallyfold::console
