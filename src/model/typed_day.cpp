#include "model/typed_day.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/calendar.h"
#include "model/date_format.h"
#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr std::string_view kSeparators = "/-., ";
constexpr std::size_t kMostDigits = 8;

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

int NumberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

// "d", "m" and "y" as the format has them; none where one is missing.
std::optional<std::string> OrderOf(std::string_view format) {
  std::string order;
  for (std::size_t i = 0; i + 1 < format.size(); ++i) {
    if (format[i] != '%') continue;
    ++i;
    if (format[i] == '1' && i + 1 < format.size()) ++i;
    switch (format[i]) {
      case 'd':
      case 'e':
        order += 'd';
        break;
      case 'm':
      case 'b':
      case 'B':
        order += 'm';
        break;
      case 'y':
      case 'Y':
        order += 'y';
        break;
      default:
        break;
    }
  }
  std::string sorted = order;
  std::ranges::sort(sorted);
  if (sorted != "dmy") return std::nullopt;
  return order;
}

// The stretches of digits; none where something else stands beside separators.
std::optional<std::vector<std::string_view>> NumbersIn(std::string_view text) {
  std::vector<std::string_view> numbers;
  std::size_t i = 0;
  while (i < text.size()) {
    if (!IsDigit(text[i])) {
      if (kSeparators.find(text[i]) == std::string_view::npos) return std::nullopt;
      ++i;
      continue;
    }
    const std::size_t first = i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    numbers.push_back(text.substr(first, i - first));
    if (numbers.size() > 2 || numbers.back().size() > kMostDigits) return std::nullopt;
  }
  return numbers;
}

// Whether a single number can be meant for a day of the month: the separator of "3/" says that more
// was to come, the full stop of "17." is part of a day that stands first.
bool IsWholeDay(std::string_view text, std::string_view order) {
  if (order.find('d') < order.find('m') && text.ends_with('.')) text.remove_suffix(1);
  return std::ranges::all_of(text, IsDigit);
}

struct Parts {
  int year;
  int month;
  int day;

  void Set(char part, int value) { (part == 'd' ? day : part == 'm' ? month : year) = value; }
};

std::optional<DateNumber> DaysFromToday(std::int64_t days) {
  const DateNumber day = DateNumberOfDayCount(DayCountOf(TodaysDateNumber()) + days);
  if (day < 10101 || day > 99991231) return std::nullopt;
  return day;
}

// "tomorrow" and "-3"; none for anything else.
std::optional<DateNumber> ReadDayFromToday(std::string_view text) {
  if (text.size() > 1 && (text.front() == '-' || text.front() == '+')) {
    const std::string_view digits = text.substr(1);
    if (digits.size() > kMostDigits || !std::ranges::all_of(digits, IsDigit)) return std::nullopt;
    return DaysFromToday(text.front() == '-' ? -NumberOf(digits) : NumberOf(digits));
  }
  const std::string words[] = {LocalizedText("yesterday"), LocalizedText("today"),
                               LocalizedText("tomorrow")};
  for (int i = 0; i < 3; ++i) {
    if (CompareIgnoringCase(text, words[i]) == 0) return DaysFromToday(i - 1);
  }
  return std::nullopt;
}

// "021726" and "02172026": as if separators stood between the parts.
std::optional<DateNumber> ReadWholeDay(std::string_view digits, std::string_view order) {
  const std::size_t year_digits = digits.size() - 4;
  if (year_digits != 2 && year_digits != 4) return std::nullopt;
  std::string text;
  std::string format;
  for (const char part : order) {
    const std::size_t size = part == 'y' ? year_digits : 2;
    if (!text.empty()) {
      text += '/';
      format += '/';
    }
    text += digits.substr(0, size);
    format += '%';
    format += part == 'y' && size == 4 ? 'Y' : part;
    digits.remove_prefix(size);
  }
  return ParseDay(text, format);
}

}  // namespace

std::optional<DateNumber> ReadTypedDay(std::string_view text, std::string_view format,
                                       std::optional<DateNumber> near) {
  if (const auto day = ParseDay(text, format)) return day;
  const bool is_signed = text.starts_with('-') || text.starts_with('+');
  if (const auto day = ReadDayFromToday(text); day || is_signed) return day;
  const auto order = OrderOf(format);
  const auto numbers = NumbersIn(text);
  if (!order || !numbers || numbers->empty()) return std::nullopt;
  const DateNumber from = near.value_or(TodaysDateNumber());
  Parts parts{from / 10000, from / 100 % 100, from % 100};
  std::string two = *order;
  std::erase(two, 'y');
  const std::string_view first = numbers->front();
  if (numbers->size() == 1 && !IsWholeDay(text, *order)) return std::nullopt;
  if (numbers->size() == 2) {
    if (std::ranges::any_of(*numbers, [](auto number) { return number.size() > 2; })) {
      return std::nullopt;
    }
    parts.Set(two[0], NumberOf(first));
    parts.Set(two[1], NumberOf(numbers->back()));
  } else if (first.size() <= 2) {
    parts.day = NumberOf(first);
  } else if (first.size() == 4) {
    parts.Set(two[0], NumberOf(first.substr(0, 2)));
    parts.Set(two[1], NumberOf(first.substr(2)));
  } else {
    return first.size() > 4 ? ReadWholeDay(first, *order) : std::nullopt;
  }
  if (parts.year < 1 || parts.year > 9999 || !IsValidDay(parts.year, parts.month, parts.day)) {
    return std::nullopt;
  }
  return parts.year * 10000 + parts.month * 100 + parts.day;
}

}  // namespace tallyfold
