#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// Numbers as they stand in property lists: white space around them does not matter, and they may
// have a sign.
namespace tallyfold::plist {

struct ParsedInteger {
  std::int64_t value = 0;
  // A number from 2 to the 63rd to 2 to the 64th less 1: `value` is the greatest there is.
  bool is_too_great = false;
};

// Decimal, or hexadecimal after "0x". None for anything else and beyond 64 bits.
[[nodiscard]] std::optional<ParsedInteger> ParseInteger(std::string_view text) noexcept;

// A decimal number with or without exponent, "nan", "inf" or "infinity" in any case. A number too
// small for a double is 0. None for anything else and for numbers too great for a double.
[[nodiscard]] std::optional<double> ParseReal(std::string_view text) noexcept;

// A number as simple as integers and amounts mostly are: an optional minus, up to 16
// digits and perhaps a decimal point and one or two digits more.
struct PlainNumber {
  bool is_negative = false;
  std::int64_t digits = 0;    // the number without its point
  int scale = 1;              // 1, 10 or 100: what to divide by for the point
  const char* end = nullptr;  // after the number
};

// The plain number that a text begins with; none when it begins otherwise.
[[nodiscard]] inline std::optional<PlainNumber> ReadPlainNumber(const char* begin,
                                                                const char* end) noexcept {
  PlainNumber number;
  const char* place = begin;
  if (place != end && *place == '-') {
    number.is_negative = true;
    ++place;
  }
  const auto read_digits = [&](std::ptrdiff_t maximum) {
    const char* first = place;
    const char* limit = end - place > maximum ? place + maximum : end;
    for (; place != limit && *place >= '0' && *place <= '9'; ++place) {
      number.digits = number.digits * 10 + (*place - '0');
    }
    return place - first;
  };
  const std::ptrdiff_t whole_digits = read_digits(16);
  if (whole_digits == 0) return std::nullopt;
  if (place != end && *place == '.') {
    ++place;
    const std::ptrdiff_t fraction_digits = read_digits(2);
    if (fraction_digits == 0) return std::nullopt;
    number.scale = fraction_digits == 1 ? 10 : 100;
  }
  number.end = place;
  return number;
}

}  // namespace tallyfold::plist
