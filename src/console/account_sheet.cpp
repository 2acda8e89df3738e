#include "console/account_sheet.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "app/accounts/account_editing.h"
#include "app/controller.h"
#include "console/command_error.h"
#include "console/words.h"

namespace tallyfold::console {
namespace {

using Typed = AccountEditSheetState::Typed;

constexpr std::int32_t kHighestCheckNumber = 2147483646;

std::string SentenceFor(const std::optional<Problem>& problem) {
  if (!problem) return "the account cannot be changed now";
  if (problem->field == "accountEditSheet_Name_Field") {
    return "name: expected a text that is not empty";
  }
  if (problem->field == "accountEditSheet_PasswordAgain_Field") return "the two passwords differ";
  return problem->text;
}

}  // namespace

void OpenAccountSheet(const Console& console) {
  if (!console.controller.accountSheet().Account_Edit())
    throw CommandError("the account cannot be changed now");
}

void TypeAccountFields(const Arguments& arguments, Typed& typed) {
  if (const auto name = arguments.Text("name")) typed.name = *name;
  if (const auto balance = arguments.Amount("balance")) typed.starting_balance = *balance;
  if (const auto check = arguments.Number("check", 0, kHighestCheckNumber)) {
    typed.starting_check_number = *check;
  }
}

void FinishAccountSheet(const Console& console, Typed typed) {
  console.controller.accountSheet().Read(std::move(typed));
  if (!console.controller.accountSheet().AccountEditSheet_OK())
    throw CommandError(SentenceFor(console.controller.accountSheet().State().problem));
}

std::size_t TypeRowNamed(const Typed& typed, std::string_view word, bool are_active) {
  std::int32_t number = 0;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data(), end, number);
  const bool is_number = error == std::errc() && rest == end;
  std::optional<std::size_t> found;
  for (std::size_t row = 0; row < typed.types.size(); ++row) {
    if (typed.types[row].is_active != are_active) continue;
    if (is_number && typed.types[row].number == number) return row;
    if (typed.types[row].name != word) continue;
    if (found) throw CommandError("several types are named " + Quoted(word) + "; use the number");
    found = row;
  }
  if (!found) {
    throw CommandError("there is no type " + Quoted(word) +
                       (are_active ? "; types lists them" : " out of use; types lists them"));
  }
  return *found;
}

}  // namespace tallyfold::console
