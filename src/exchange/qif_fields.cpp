#include "exchange/qif_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <utility>

#include "model/calendar.h"
#include "model/date_format.h"

namespace tallyfold {
namespace {

constexpr std::string_view kDateSeparators = "/\\-.,*+^!@#$%&()_=[]{}|;:'\"<>`~";
constexpr std::string_view kDigits = "0123456789";

bool IsFieldDigit(char character) noexcept {
  return character >= '0' && character <= '9';
}

// Up to three numbers of a day.
struct DayNumbers {
  std::array<std::int32_t, 3> numbers{};
  std::size_t count = 0;

  void Add(std::string_view digits) { numbers[count++] = LeadingInteger(digits); }
};

DayNumbers DigitRuns(std::string_view text) {
  DayNumbers runs;
  std::size_t start = text.find_first_of(kDigits);
  while (start != std::string_view::npos && runs.count < runs.numbers.size()) {
    const std::size_t end = std::min(text.find_first_not_of(kDigits, start), text.size());
    runs.Add(text.substr(start, end - start));
    start = text.find_first_of(kDigits, end);
  }
  return runs;
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

DayNumbers NumbersOfDay(std::string_view text, std::string_view format) {
  if (text.find_first_of(kDateSeparators) != std::string_view::npos) return DigitRuns(text);
  std::array<std::size_t, 3> lengths = {2, 2, 2};
  if (text.size() == 8) {
    lengths[PlaceOfYear(format)] = 4;
  } else if (text.size() != 6) {
    return {};
  }
  DayNumbers numbers;
  std::size_t start = 0;
  for (const std::size_t length : lengths) {
    numbers.Add(text.substr(start, length));
    start += length;
  }
  return numbers;
}

// Three numbers in the order of the format's fields, the year in full; 0 where there is no such
// day.
DateNumber DayOf(const std::array<std::int32_t, 3>& numbers, std::string_view order) {
  int year = 0;
  int month = 0;
  int day = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    (order[i] == 'm' ? month : order[i] == 'd' ? day : year) = numbers[i];
  }
  if (year < 1 || year > 9999 || !IsValidDay(year, month, day)) return 0;
  return year * 10000 + month * 100 + day;
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
  if (text.empty() || !IsFieldDigit(text.front())) return 0;
  std::int32_t value = 0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
  if (error == std::errc::result_out_of_range) {
    return is_negative ? std::numeric_limits<std::int32_t>::min()
                       : std::numeric_limits<std::int32_t>::max();
  }
  return is_negative ? -value : value;
}

std::vector<std::int32_t> DateStringComponents(std::string_view text, std::string_view format) {
  const DayNumbers found = NumbersOfDay(text, format);
  return {found.numbers.begin(), found.numbers.begin() + static_cast<std::ptrdiff_t>(found.count)};
}

std::string TweakDateString(std::string_view text, std::string_view format) {
  const auto numbers = DateStringComponents(text, format);
  if (numbers.size() < 3) return {};
  return std::to_string(numbers[0]) + '/' + std::to_string(numbers[1]) + '/' +
         std::to_string(numbers[2]);
}

DateNumber QifDay(std::string_view text, std::string_view format) {
  return ReadQifDay(text, format).day;
}

QifDayReading ReadQifDay(std::string_view text, std::string_view format) {
  DayNumbers found = NumbersOfDay(text, format);
  const std::string order = FieldOrder(format);
  if (found.count < 3 || order.size() < 3) return {};
  QifDayReading reading;
  for (std::size_t i = 0; i < 3 && order.find('y') != std::string::npos; ++i) {
    // A format with a two-digit year reduces every number before they are told apart.
    const int stood = found.numbers[i];
    const int reduced = stood % 100;
    found.numbers[i] = order[i] == 'y' ? YearOfTwoDigits(reduced) : reduced;
    if (stood != reduced && stood != found.numbers[i]) reading.is_reduced = true;
  }
  reading.day = DayOf(found.numbers, order);
  return reading;
}

DateNumber QifDayAsWritten(std::string_view text, std::string_view format) {
  constexpr std::string_view kBlanks = " \t";
  const std::string order = FieldOrder(format);
  if (order.size() < 3) return 0;
  DayNumbers found;
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t digits = std::min(text.find_first_not_of(kDigits), text.size());
    if (digits == 0 || digits > (order[i] == 'Y' ? 4 : 2)) return 0;
    found.Add(text.substr(0, digits));
    text.remove_prefix(digits);
    if (i == 2) break;
    if (!text.starts_with('/')) return 0;
    text.remove_prefix(1);
  }
  if (text.find_first_not_of(kBlanks) != std::string_view::npos) return 0;
  const std::size_t year = order.find('y');
  if (year != std::string::npos) found.numbers[year] = YearOfTwoDigits(found.numbers[year]);
  return DayOf(found.numbers, order);
}

std::string TweakAmountString(std::string_view text, std::string_view decimal_separator,
                              std::string_view thousands_separator) {
  std::string amount(text);
  ReplaceAll(amount, thousands_separator, "");
  ReplaceAll(amount, decimal_separator, ".");
  std::erase_if(amount, [](char character) {
    return !IsFieldDigit(character) && character != '.' && character != '-';
  });
  return amount;
}

double LeadingAmount(std::string_view text) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  // from_chars would also take infinities and what is not a number.
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  if (text.size() == sign || (!IsFieldDigit(text[sign]) && text[sign] != '.')) return 0.0;
  double amount = 0.0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), amount).ec;
  return error == std::errc() ? amount : 0.0;
}

}  // namespace tallyfold
