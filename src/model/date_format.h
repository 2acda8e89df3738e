#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/date_number.h"
#include "platform/civil_time.h"

namespace tallyfold {

// Calendar-date formats: texts in which a per cent sign and a letter stand for a part of the date.
//   %a %A  day of the week, short and in full     %H %I  hour 00-23 and 01-12
//   %b %B  month, short and in full               %M %S  minute, second
//   %d %e  day of the month 01-31 and 1-31        %p     AM or PM
//   %m     month 01-12                            %%     a per cent sign
//   %y %Y  year of two and of four digits
// A 1 after the sign takes leading zeros off a number: %1m, %1d. Names of days and months are in
// the user's language. What is none of these stands for itself.

// Fields out of range roll.
[[nodiscard]] std::string FormatDate(const CivilTime& time, std::string_view format);

// What one or two digits for a year mean.
enum class ShortYears : std::uint8_t {
  // Whatever the format: the year from 79 before this one to 20 after it that ends in them.
  NearToday,
  // For %y, 1969 to 2068; for %Y, the year itself.
  ByFormat,
};

// yyyy-mm-dd, whatever the number; a day that does not exist is written as it is stored.
[[nodiscard]] std::string IsoDay(DateNumber day);

// The day typed as YYYY-MM-DD or as `format` has it, when it exists (years 1 to 9999). Names count
// in any case, short or in full; one of / - . , and white space may stand for another. Four digits
// are the year itself, for %Y three too. Nothing may follow but white space. None for a format that
// does not name day, month and year.
[[nodiscard]] std::optional<DateNumber> ParseDay(std::string_view text, std::string_view format,
                                                 ShortYears short_years = ShortYears::NearToday);

// 69 to 99 are 19xx, 0 to 68 are 20xx.
[[nodiscard]] int YearOfTwoDigits(int digits) noexcept;

// A short numeric format with slashes that keeps the order of day, month and year in `format`:
// "%A, %B %e, %Y" gives "%1m/%e/%y".
[[nodiscard]] std::string DateFormatStringToShortestDateFormatString(std::string_view format);

}  // namespace tallyfold
