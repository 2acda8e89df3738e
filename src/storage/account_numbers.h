#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "model/account.h"

namespace tallyfold {

// Numbers for accounts that have none yet, each once.
class FreeAccountNumbers {
 public:
  // Beside the numbers of `accounts`; negative ones are none.
  explicit FreeAccountNumbers(const AccountList& accounts);

  // One above the highest so far, at least 1; where no higher number is left, the least free one
  // from 1.
  [[nodiscard]] std::int32_t Take();

 private:
  std::unordered_set<std::int32_t> taken_;
  std::int32_t highest_ = 0;
  std::int32_t least_ = 1;
};

// Numbers those accounts of a file whose number is negative: each one above the highest before it,
// but above all in the file where a later account came with that number.
void NumberAccountsOfFile(const AccountList& accounts);

// What the user is told of accounts that came with the same number, a sentence for each number.
[[nodiscard]] std::vector<std::string> NotesOnSharedAccountNumbers(const AccountList& accounts);

}  // namespace tallyfold
