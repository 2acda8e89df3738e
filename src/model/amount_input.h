#pragma once

#include <optional>
#include <string_view>

namespace tallyfold {

// Reads an amount as a user types it: -1,234.50, $1234.5, 12 or .5, with the user's separators.
//
// One sign and one currency sign ($, a euro, pound or yen sign) may stand before the number in
// either order, the currency sign after it too, white space between any of them. Separators of
// thousands may be left out; where there are some, every group after the first has three digits.
// None for anything else, for more than two decimals that count and for more than 13 digits before
// the decimal separator: what is read is what was typed, nothing is dropped.
[[nodiscard]] std::optional<double> ParseAmount(std::string_view text);
// With these separators. No thousands are separated when the second is empty or equals the first;
// one kind of space stands for any.
[[nodiscard]] std::optional<double> ParseAmount(std::string_view text,
                                                std::string_view decimal_separator,
                                                std::string_view thousands_separator);
// With the user's separators or as programs write it, with "." before the decimals and no thousands
// separated. None too for what can be meant both ways, such as 1.234 or 1.500 where the user's
// decimals begin otherwise.
[[nodiscard]] std::optional<double> ParsePlainOrUsersAmount(std::string_view text);

}  // namespace tallyfold
