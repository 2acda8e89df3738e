#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "exchange/import_hints.h"

namespace tallyfold {

// An amount as a bank writes it, before it is known which character separates the cents:
// "-1.234,50", "1'234.50 CR", "(12.50)", "12,50 EUR", "$ 1 234".
struct WrittenAmount {
  // What the text says of the character that separates the cents.
  enum class Decimal : std::uint8_t {
    Open,       // nothing: "200", "1 200"
    Point,      // it is the point
    Comma,      // it is the comma
    Undecided,  // "29.000" may be 29 or twenty-nine thousand
  };

  // The number without separators; 18 digits at most, beyond which it is no amount.
  std::int64_t digits = 0;
  // How many digits stand behind the last separator; none without one.
  std::uint8_t behind_separator = 0;
  char last_separator = '\0';
  Decimal decimal = Decimal::Open;
  // Digits with signs, separators, blanks and a currency, and nothing else.
  bool is_amount = false;
  bool is_blank = true;  // no text at all, or dashes alone
  bool is_negative = false;
  bool has_sign = false;

  // The amount, negative ones with their sign; 0 for what is no amount. `decimal_separator` is "."
  // or ","; it counts only where the text itself is undecided. Rounded to cents by nobody.
  [[nodiscard]] double Number(char decimal_separator) const noexcept {
    if (decimal == Decimal::Point) decimal_separator = '.';
    if (decimal == Decimal::Comma) decimal_separator = ',';
    const bool has_decimals = decimal != Decimal::Open && last_separator == decimal_separator;
    double number = is_amount ? static_cast<double>(digits) : 0.0;
    if (has_decimals) number /= kPowers[behind_separator];
    return is_negative ? -number : number;
  }
  // The same; none for what is no amount.
  [[nodiscard]] std::optional<double> Value(char decimal_separator) const noexcept {
    return is_amount ? std::optional(Number(decimal_separator)) : std::nullopt;
  }

 private:
  static constexpr std::array<double, 19> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                                     1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                                     1e14, 1e15, 1e16, 1e17, 1e18};
};

// Linear; texts of more than 100 bytes are none.
[[nodiscard]] WrittenAmount ReadWrittenAmount(std::string_view text) noexcept;
// The same into one that is as it was made.
void ReadWrittenAmount(std::string_view text, WrittenAmount& written) noexcept;

// An amount in a file whose format has no separators of thousands, so that "," and "." both mean
// cents; they are taken for thousands only where there is no other way to read them. Adds what is
// doubtful to `doubts`.
[[nodiscard]] std::optional<double> ReadPlainAmount(std::string_view text,
                                                    ImportDoubtSet& doubts) noexcept;

// Adds what is doubtful of an amount once it is known.
void NoteLargeAmount(double amount, ImportDoubtSet& doubts) noexcept;

}  // namespace tallyfold
