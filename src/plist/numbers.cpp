#include "plist/numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tallyfold::plist {
namespace {

std::string_view Trimmed(std::string_view text) noexcept {
  constexpr std::string_view kWhiteSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

// Takes the sign off; true when it is a minus.
bool TakeSign(std::string_view& text) noexcept {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool is_minus = text.front() == '-';
  text.remove_prefix(1);
  return is_minus;
}

// `word` is in lower case.
bool EqualsIgnoringCase(std::string_view text, std::string_view word) noexcept {
  return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + 32 : a) == b; });
}

// Of a decimal number without sign that no double holds: whether it is too small for one, not too
// great.
bool IsTooSmall(std::string_view number) noexcept {
  constexpr std::int64_t kBeyondAll = std::int64_t{1} << 62;
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  std::string_view power = number.substr(std::min(mark + 1, number.size()));
  const bool is_negative = TakeSign(power);
  std::int64_t exponent = 0;
  const auto parsed = std::from_chars(power.data(), power.data() + power.size(), exponent);
  if (parsed.ec == std::errc::result_out_of_range) exponent = kBeyondAll;
  if (is_negative) exponent = -exponent;
  // The decimal place of the first digit that counts: 0 for the one before the point.
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first =
      static_cast<std::int64_t>(std::min(digits.find_first_of("123456789"), digits.size()));
  return (first < point ? point - first - 1 : point - first) + exponent < 0;
}

}  // namespace

std::optional<ParsedInteger> ParseInteger(std::string_view text) noexcept {
  text = Trimmed(text);
  const bool is_negative = TakeSign(text);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint64_t magnitude = 0;
  const char* last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, magnitude, base);
  if (error != std::errc() || end != last) return std::nullopt;
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
  const bool is_beyond = magnitude > static_cast<std::uint64_t>(kLargest) + (is_negative ? 1 : 0);
  if (is_beyond && is_negative) return std::nullopt;
  if (is_beyond) return ParsedInteger{kLargest, true};
  return ParsedInteger{static_cast<std::int64_t>(is_negative ? 0 - magnitude : magnitude)};
}

std::optional<double> ParseReal(std::string_view text) noexcept {
  text = Trimmed(text);
  const bool is_negative = TakeSign(text);
  double magnitude = 0.0;
  if (EqualsIgnoringCase(text, "nan")) {
    magnitude = std::numeric_limits<double>::quiet_NaN();
  } else if (EqualsIgnoringCase(text, "inf") || EqualsIgnoringCase(text, "infinity")) {
    magnitude = std::numeric_limits<double>::infinity();
  } else {
    // The words and the second sign that the conversion below would take are not for files.
    const bool is_number =
        !text.empty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, magnitude);
    if (!is_number || end != last) return std::nullopt;
    if (error == std::errc::result_out_of_range) {
      if (!IsTooSmall(text)) return std::nullopt;
      magnitude = 0.0;
    } else if (error != std::errc()) {
      return std::nullopt;
    }
  }
  return is_negative ? -magnitude : magnitude;
}

}  // namespace tallyfold::plist
