#pragma once

#include <optional>
#include <string_view>

#include "model/date_number.h"

namespace tallyfold {

// Reads a day as a user types it in a hurry. Whatever ParseDay() takes; "today", "yesterday" and
// "tomorrow" in the user's language and any case; "-3" and "+3", so many days before and after
// today. Else, in the order of day, month and year in `format`: "17", a day of the month of `near`;
// "2/17", a day of its year, with any of / - . , or a space between; "0217", "021726" and
// "02172026" (or "20260217" where the year comes first). Without `near` today is meant. None for
// anything else, such as a "2/" that lacks its day, and for a day that does not exist or is not of
// the years 1 to 9999.
[[nodiscard]] std::optional<DateNumber> ReadTypedDay(std::string_view text, std::string_view format,
                                                     std::optional<DateNumber> near = {});

}  // namespace tallyfold
