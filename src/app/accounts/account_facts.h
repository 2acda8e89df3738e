#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/date_number.h"
#include "storage/preferences.h"

namespace tallyfold {

class LDGRAccount;

// What an account has come to, beside what its sheet lets the user change.
struct AccountFacts {
  std::size_t entries = 0;
  // Days of the first and the last entry by date; none where there is no entry.
  std::optional<DateNumber> first;
  std::optional<DateNumber> last;
  std::size_t schedules = 0;
  // The nearest day that waits to be committed; none where none does.
  std::optional<DateNumber> next_scheduled;
  // The number that the next check would get.
  std::int32_t next_check = 0;
  double balance = 0.0;
};

// One walk over the entries.
[[nodiscard]] AccountFacts FactsOf(const LDGRAccount& account);

// A caption and what stands behind it, in the user's words.
struct AccountFactLine {
  std::string title;
  std::string text;
};

[[nodiscard]] std::vector<AccountFactLine> LinesOf(const AccountFacts& facts,
                                                   const LDGRPreferences& preferences);

}  // namespace tallyfold
