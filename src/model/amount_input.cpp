#include "model/amount_input.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

// Ordinary, no-break, thin and narrow no-break spaces, and a tab.
constexpr std::string_view kSpaces[] = {" ", "\u00A0", "\u2009", "\u202F", "\t"};
constexpr std::string_view kCurrencySigns[] = {"$", "€", "£", "¥"};
constexpr std::string_view kMinusSigns[] = {"-", "\u2212"};

// With more, cents no longer fit in a double.
constexpr std::size_t kMostWholeDigits = 13;
constexpr std::size_t kDecimals = 2;

// A text of which parts are taken off the front.
class Input {
 public:
  explicit Input(std::string_view text) : rest_(text) {}

  bool Take(std::string_view text) {
    if (text.empty() || !rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  template <std::size_t size>
  bool TakeAnyOf(const std::string_view (&texts)[size]) {
    return std::any_of(std::begin(texts), std::end(texts),
                       [this](std::string_view text) { return Take(text); });
  }

  void SkipSpace() {
    while (TakeAnyOf(kSpaces)) continue;
  }

  std::string_view TakeDigits() {
    const auto end =
        std::find_if_not(rest_.begin(), rest_.end(), [](char c) { return c >= '0' && c <= '9'; });
    const std::string_view digits = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(digits.size());
    return digits;
  }

  [[nodiscard]] bool AtEnd() const noexcept { return rest_.empty(); }

 private:
  std::string_view rest_;
};

// What stands between groups of digits.
class GroupMark {
 public:
  GroupMark(std::string_view decimal_separator, std::string_view thousands_separator)
      : mark_(thousands_separator == decimal_separator ? std::string_view() : thousands_separator),
        is_space_(std::find(std::begin(kSpaces), std::end(kSpaces), mark_) != std::end(kSpaces)) {}

  bool TakeFrom(Input& input) const {
    return is_space_ ? input.TakeAnyOf(kSpaces) : input.Take(mark_);
  }

 private:
  std::string_view mark_;
  bool is_space_;
};

// The digits before the decimal separator; none when they are grouped otherwise than by three.
std::optional<std::string> TakeWholeDigits(Input& input, const GroupMark& mark) {
  std::string digits(input.TakeDigits());
  bool grouped = false;
  for (Input ahead = input; !digits.empty() && mark.TakeFrom(ahead); input = ahead) {
    const std::string_view group = ahead.TakeDigits();
    if (group.empty()) break;  // the mark belongs to what comes after the number
    if (group.size() != 3 || (!grouped && digits.size() > 3)) return std::nullopt;
    grouped = true;
    digits.append(group);
  }
  return digits;
}

// Whether the only separator of the text is a "." with more digits behind it than decimals have.
bool EndsInThousands(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point != text.find_last_of(".,") || point == std::string_view::npos) return false;
  return Input(text.substr(point + 1)).TakeDigits().size() > kDecimals;
}

}  // namespace

std::optional<double> ParseAmount(std::string_view text) {
  const UserLocale& locale = CurrentLocale();
  return ParseAmount(text, locale.DecimalSeparator(), locale.ThousandsSeparator());
}

std::optional<double> ParseAmount(std::string_view text, std::string_view decimal_separator,
                                  std::string_view thousands_separator) {
  Input input(text);
  bool has_sign = false;
  bool has_currency = false;
  bool negative = false;
  for (input.SkipSpace();; input.SkipSpace()) {
    if (!has_sign && input.TakeAnyOf(kMinusSigns)) {
      has_sign = negative = true;
    } else if (!has_sign && input.Take("+")) {
      has_sign = true;
    } else if (!has_currency && input.TakeAnyOf(kCurrencySigns)) {
      has_currency = true;
    } else {
      break;
    }
  }

  const auto whole = TakeWholeDigits(input, GroupMark(decimal_separator, thousands_separator));
  if (!whole) return std::nullopt;
  const std::size_t leading_zeros = std::min(whole->find_first_not_of('0'), whole->size());
  if (whole->size() - leading_zeros > kMostWholeDigits) return std::nullopt;
  std::string_view decimals;
  if (input.Take(decimal_separator)) decimals = input.TakeDigits();
  if (whole->empty() && decimals.empty()) return std::nullopt;
  if (decimals.find_first_not_of('0', kDecimals) != std::string_view::npos) return std::nullopt;

  input.SkipSpace();
  if (!has_currency && input.TakeAnyOf(kCurrencySigns)) input.SkipSpace();
  if (!input.AtEnd()) return std::nullopt;

  const std::string number = *whole + "." + std::string(decimals.substr(0, kDecimals));
  double amount = 0.0;
  std::from_chars(number.data(), number.data() + number.size(), amount);
  return negative && amount != 0.0 ? -amount : amount;
}

std::optional<double> ParsePlainOrUsersAmount(std::string_view text) {
  const UserLocale& locale = CurrentLocale();
  const std::string decimal = locale.DecimalSeparator();
  const std::string thousands = locale.ThousandsSeparator();
  if (decimal != "." && EndsInThousands(text)) return std::nullopt;
  const auto plain = ParseAmount(text, ".", "");
  return plain ? plain : ParseAmount(text, decimal, thousands);
}

}  // namespace tallyfold
