#include "console/values.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#include "console/command_error.h"
#include "console/words.h"
#include "model/amount_input.h"
#include "model/amounts.h"
#include "model/date_format.h"
#include "model/typed_day.h"
#include "platform/ambient.h"

namespace tallyfold::console {
namespace {

[[noreturn]] void Refuse(std::string_view what, std::string_view expected, std::string_view text) {
  throw CommandError(std::string(what) + ": expected " + std::string(expected) + ", not " +
                     Quoted(text));
}

}  // namespace

DateNumber ReadDate(std::string_view text, std::string_view what) {
  const std::string format = CurrentLocale().ShortDateFormat();
  if (const auto day = ReadTypedDay(text, format)) return *day;
  Refuse(what, "a date such as 2026-03-31 or " + FormatDate({2026, 3, 31}, format), text);
}

double ReadAmount(std::string_view text, std::string_view what) {
  if (const auto amount = ParsePlainOrUsersAmount(text)) return *amount;
  std::string expected = "an amount such as 1234.50";
  const std::string decimal = CurrentLocale().DecimalSeparator();
  if (decimal != ".") expected += " or 1234" + decimal + "50";
  Refuse(what, expected, text);
}

bool ReadYesNo(std::string_view text, std::string_view what) {
  for (const std::string_view yes : {"yes", "y", "true", "on", "1"}) {
    if (text == yes) return true;
  }
  for (const std::string_view no : {"no", "n", "false", "off", "0"}) {
    if (text == no) return false;
  }
  Refuse(what, "yes or no", text);
}

std::int32_t ReadNumber(std::string_view text, std::string_view what, std::int32_t least,
                        std::int32_t most) {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end || number < least || number > most) {
    constexpr std::int32_t kNoLimit = 2147483647;
    std::string expected = "a whole number";
    if (most == kNoLimit) {
      expected += " from " + std::to_string(least);
    } else {
      expected += " from " + std::to_string(least) + " to " + std::to_string(most);
    }
    Refuse(what, expected, text);
  }
  return number;
}

NumberRange ReadNumberRange(std::string_view text, std::string_view what, std::int32_t least,
                            std::int32_t most) {
  const std::size_t dash = text.find('-', 1);
  const std::int32_t first = ReadNumber(text.substr(0, dash), what, least, most);
  if (dash == std::string_view::npos) return {first, first};
  return {first, ReadNumber(text.substr(dash + 1), what, first, most)};
}

std::string WriteDate(DateNumber date) {
  return IsoDay(date);
}

std::string WriteAmount(double amount) {
  std::string text = FixedAmountString(amount);
  if (text == "-0.00") text.erase(0, 1);
  return text;
}

std::string WriteYesNo(bool value) {
  return value ? "yes" : "no";
}

std::string WriteNumber(std::int64_t number) {
  return std::to_string(number);
}

}  // namespace tallyfold::console
