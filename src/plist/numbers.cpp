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

}  // namespace

std::optional<std::int64_t> ParseInteger(std::string_view text) noexcept {
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
  const std::uint64_t largest =
      static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + (is_negative ? 1 : 0);
  if (error != std::errc() || end != last || magnitude > largest) return std::nullopt;
  return static_cast<std::int64_t>(is_negative ? 0 - magnitude : magnitude);
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
    if (!is_number || error != std::errc() || end != last) return std::nullopt;
  }
  return is_negative ? -magnitude : magnitude;
}

}  // namespace tallyfold::plist
