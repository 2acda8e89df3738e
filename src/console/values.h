#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/date_number.h"

namespace tallyfold::console {

// Values as they are typed and shown. Every reader throws CommandError with `what` (the name of the
// option or word), what was given and what was expected.

// A day that exists: "2026-03-07", the user's short format with or without its year ("03/07/26",
// "3/7"), "today", "yesterday", "tomorrow", "-3" or "+3" (see ReadTypedDay).
[[nodiscard]] DateNumber ReadDate(std::string_view text, std::string_view what);
// Plain ("1234.50") or with the user's separators (see ParsePlainOrUsersAmount). Below 10^13, so
// that every cent is exact.
[[nodiscard]] double ReadAmount(std::string_view text, std::string_view what);
// yes or no (also y, n, true, false, on, off, 1, 0).
[[nodiscard]] bool ReadYesNo(std::string_view text, std::string_view what);
[[nodiscard]] std::int32_t ReadNumber(std::string_view text, std::string_view what,
                                      std::int32_t least, std::int32_t most);
struct NumberRange {
  std::int32_t first = 0;
  std::int32_t last = 0;

  [[nodiscard]] bool Contains(std::int32_t number) const noexcept {
    return number >= first && number <= last;
  }
};
// "3", or "3-5" in that order. `least` is not negative.
[[nodiscard]] NumberRange ReadNumberRange(std::string_view text, std::string_view what,
                                          std::int32_t least, std::int32_t most);

// Days as WriteDate() writes them, in calendar-date conversion letters.
inline constexpr std::string_view kPlainDays = "%Y-%m-%d";
// yyyy-mm-dd, whatever the number; a day that does not exist is written as it is stored.
[[nodiscard]] std::string WriteDate(DateNumber date);
// Two decimals behind ".", never "-0.00".
[[nodiscard]] std::string WriteAmount(double amount);
[[nodiscard]] std::string WriteYesNo(bool value);
[[nodiscard]] std::string WriteNumber(std::int64_t number);

// Leaves the field of a sheet as it is where nothing is given.
template <typename Field, typename Value>
void SetIfGiven(Field& field, std::optional<Value> value) {
  if (value) field = *std::move(value);
}

}  // namespace tallyfold::console
