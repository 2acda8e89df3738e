#include "exchange/qif_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>

#include "model/calendar.h"
#include "model/date_format.h"

namespace tallyfold {
namespace {

constexpr std::string_view kDateSeparators = "/\\-.,*+^!@#$%&()_=[]{}|;:'\"<>`~";
constexpr std::string_view kDigits = "0123456789";

bool IsDigit(char character) noexcept {
  return character >= '0' && character <= '9';
}

std::vector<std::int32_t> DigitRuns(std::string_view text) {
  std::vector<std::int32_t> numbers;
  std::size_t start = text.find_first_of(kDigits);
  while (start != std::string_view::npos && numbers.size() < 3) {
    const std::size_t end = std::min(text.find_first_not_of(kDigits, start), text.size());
    numbers.push_back(LeadingInteger(text.substr(start, end - start)));
    start = text.find_first_of(kDigits, end);
  }
  return numbers;
}

// The letters of day, month and year in the order of the format.
std::string FieldOrder(std::string_view format) {
  std::string order;
  for (std::size_t i = 0; i + 1 < format.size(); ++i) {
    if (format[i] == '%') order += format[++i];
  }
  return order;
}

std::size_t PlaceOfYear(std::string_view format) {
  return std::min<std::size_t>(FieldOrder(format).find_first_of("yY"), 2);
}

void ReplaceAll(std::string& text, std::string_view part, std::string_view replacement) {
  if (part.empty() || text.find(part) == std::string::npos) return;
  std::string result;
  result.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t found = text.find(part); found != std::string::npos;
       found = text.find(part, start)) {
    result.append(text, start, found - start);
    result += replacement;
    start = found + part.size();
  }
  result.append(text, start);
  text = std::move(result);
}

}  // namespace

std::int32_t LeadingInteger(std::string_view text) noexcept {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  const bool is_negative = text.front() == '-';
  if (is_negative || text.front() == '+') text.remove_prefix(1);
  // from_chars would take a second sign.
  if (text.empty() || !IsDigit(text.front())) return 0;
  std::int32_t value = 0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
  if (error == std::errc::result_out_of_range) {
    return is_negative ? std::numeric_limits<std::int32_t>::min()
                       : std::numeric_limits<std::int32_t>::max();
  }
  return is_negative ? -value : value;
}

std::vector<std::int32_t> DateStringComponents(std::string_view text, std::string_view format) {
  if (text.find_first_of(kDateSeparators) != std::string_view::npos) return DigitRuns(text);
  std::array<std::size_t, 3> lengths = {2, 2, 2};
  if (text.size() == 8) {
    lengths[PlaceOfYear(format)] = 4;
  } else if (text.size() != 6) {
    return {};
  }
  std::vector<std::int32_t> numbers;
  std::size_t start = 0;
  for (const std::size_t length : lengths) {
    numbers.push_back(LeadingInteger(text.substr(start, length)));
    start += length;
  }
  return numbers;
}

std::string TweakDateString(std::string_view text, std::string_view format) {
  const auto numbers = DateStringComponents(text, format);
  if (numbers.size() < 3) return {};
  return std::to_string(numbers[0]) + '/' + std::to_string(numbers[1]) + '/' +
         std::to_string(numbers[2]);
}

DateNumber QifDay(std::string_view text, std::string_view format) {
  const auto numbers = DateStringComponents(text, format);
  const std::string order = FieldOrder(format);
  if (numbers.size() < 3 || order.size() < 3) return 0;
  // A format with a two-digit year reduces every number before they are told apart.
  const bool has_short_year = order.find('y') != std::string::npos;
  int year = 0;
  int month = 0;
  int day = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const int number = has_short_year ? numbers[i] % 100 : numbers[i];
    switch (order[i]) {
      case 'm':
        month = number;
        break;
      case 'd':
        day = number;
        break;
      default:
        year = has_short_year ? YearOfTwoDigits(number) : number;
        break;
    }
  }
  if (year < 1 || year > 9999 || !IsValidDay(year, month, day)) return 0;
  return year * 10000 + month * 100 + day;
}

std::string TweakAmountString(std::string_view text, std::string_view decimal_separator,
                              std::string_view thousands_separator) {
  std::string amount(text);
  ReplaceAll(amount, thousands_separator, "");
  ReplaceAll(amount, decimal_separator, ".");
  std::erase_if(amount, [](char character) {
    return !IsDigit(character) && character != '.' && character != '-';
  });
  return amount;
}

double LeadingAmount(std::string_view text) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  // from_chars would also take infinities and what is not a number.
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  if (text.size() == sign || (!IsDigit(text[sign]) && text[sign] != '.')) return 0.0;
  double amount = 0.0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), amount).ec;
  return error == std::errc() ? amount : 0.0;
}

}  // namespace tallyfold
