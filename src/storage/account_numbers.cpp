#include "storage/account_numbers.h"

#include <algorithm>
#include <limits>
#include <map>

#include "model/text.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kHighestNumber = std::numeric_limits<std::int32_t>::max();

}  // namespace

FreeAccountNumbers::FreeAccountNumbers(const AccountList& accounts) {
  for (const auto& account : accounts) {
    taken_.insert(account->GetNumber());
    highest_ = std::max(highest_, account->GetNumber());
  }
}

std::int32_t FreeAccountNumbers::Take() {
  if (highest_ < kHighestNumber) {
    taken_.insert(++highest_);
    return highest_;
  }
  while (taken_.contains(least_)) ++least_;
  taken_.insert(least_);
  return least_;
}

void NumberAccountsOfFile(const AccountList& accounts) {
  std::unordered_set<std::int32_t> numbers;
  for (const auto& account : accounts) numbers.insert(account->GetNumber());
  AccountList left;
  std::int32_t highest = 0;
  for (const auto& account : accounts) {
    if (account->GetNumber() >= 0) {
      highest = std::max(highest, account->GetNumber());
    } else if (highest == kHighestNumber || numbers.contains(++highest)) {
      left.push_back(account);
    } else {
      account->SetNumber(highest);
    }
  }
  FreeAccountNumbers free(accounts);
  for (const auto& account : left) account->SetNumber(free.Take());
}

std::vector<std::string> NotesOnSharedAccountNumbers(const AccountList& accounts) {
  std::map<std::int32_t, std::vector<std::string>> names;
  for (const auto& account : accounts) {
    names[account->GetNumber()].push_back('"' + account->GetName() + '"');
  }
  std::vector<std::string> notes;
  for (const auto& [number, of_number] : names) {
    if (of_number.size() < 2) continue;
    notes.push_back(
        Message("The account number {1} is that of {2}.  Transfers and view settings with that "
                "number go to the first.",
                {std::to_string(number), StringsToEnglishList(of_number)}));
  }
  return notes;
}

}  // namespace tallyfold
