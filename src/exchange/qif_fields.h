#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/date_number.h"

namespace tallyfold {

// How single values of a QIF file are read. Nothing here fails: what cannot be read is 0.

// The three numbers of a day, in the order of the text: its first three runs of digits when it
// holds a separator such as / - . ' ; without one six characters are three of two, and of eight the
// year takes four where `format` has it. Fewer when the text has fewer. Longer runs of digits than
// fit saturate.
[[nodiscard]] std::vector<std::int32_t> DateStringComponents(std::string_view text,
                                                             std::string_view format);
// The three numbers joined by slashes; "" for fewer.
[[nodiscard]] std::string TweakDateString(std::string_view text, std::string_view format);
// The day in a value, read in one of the twelve formats (see qif_date_formats.h). 0 for fewer than
// three numbers and for a day that does not exist. A two-digit year keeps the last two digits of
// whatever the text has: 69 to 99 are 19xx, 00 to 68 are 20xx. A four-digit year is literal.
[[nodiscard]] DateNumber QifDay(std::string_view text, std::string_view format);

struct QifDayReading {
  DateNumber day = 0;  // as QifDay() has it
  // The two-digit format left something out that stood in the text: more than two digits of a day
  // or month, or another century.
  bool is_reduced = false;
};
// An earlier day stands with a year of two digits in a format that takes all digits as the year.
inline constexpr DateNumber kFirstDayOfYear100 = 1000101;
[[nodiscard]] QifDayReading ReadQifDay(std::string_view text, std::string_view format);

// The day in a value that stands exactly as the format has it, but for leading zeros and blanks
// around it; a two-digit year is that of QifDay(). 0 for anything else.
[[nodiscard]] DateNumber QifDayAsWritten(std::string_view text, std::string_view format);

// The digits, points and minus signs of an amount after every thousands separator is removed and
// every decimal separator has become a point. Empty separators are left alone.
[[nodiscard]] std::string TweakAmountString(std::string_view text,
                                            std::string_view decimal_separator,
                                            std::string_view thousands_separator);
// The decimal number that a text begins with, after blanks; 0 for none and beyond what a double
// holds.
[[nodiscard]] double LeadingAmount(std::string_view text) noexcept;

// The whole number that the text begins with, after white space; 0 for none, saturated at 32 bits.
[[nodiscard]] std::int32_t LeadingInteger(std::string_view text) noexcept;

}  // namespace tallyfold
