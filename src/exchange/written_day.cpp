#include "exchange/written_day.h"

#include <cstddef>
#include <string>

#include "exchange/ascii.h"
#include "model/calendar.h"
#include "model/date_format.h"
#include "model/text.h"

namespace tallyfold {
namespace {

bool IsInMonthName(char character) noexcept {
  const auto byte = static_cast<unsigned char>(character);
  return IsAsciiLetter(character) || byte >= 0x80;
}

bool IsSeparator(char character) noexcept {
  return character == '.' || character == '/' || character == '-' || character == ' ' ||
         character == ',' || character == '\'';
}

struct MonthName {
  std::string_view start;
  int month;
};

// What names of months begin with, longer beginnings before shorter ones.
constexpr MonthName kMonthNames[] = {
    {"jan", 1},  {"gen", 1},       {"ene", 1},      {"sty", 1},      {"feb", 2},  {"f\u00E9v", 2},
    {"fev", 2},  {"lut", 2},       {"mar", 3},      {"m\u00E4r", 3}, {"mrt", 3},  {"maart", 3},
    {"maa", 3},  {"mrz", 3},       {"apr", 4},      {"avr", 4},      {"abr", 4},  {"kwi", 4},
    {"may", 5},  {"mai", 5},       {"mag", 5},      {"mei", 5},      {"maj", 5},  {"juin", 6},
    {"jun", 6},  {"giu", 6},       {"cze", 6},      {"juil", 7},     {"jul", 7},  {"lug", 7},
    {"lip", 7},  {"aug", 8},       {"ao\u00FB", 8}, {"aou", 8},      {"ago", 8},  {"sie", 8},
    {"sep", 9},  {"set", 9},       {"wrz", 9},      {"oct", 10},     {"okt", 10}, {"ott", 10},
    {"out", 10}, {"pa\u017A", 10}, {"paz", 10},     {"nov", 11},     {"lis", 11}, {"dec", 12},
    {"dez", 12}, {"d\u00E9c", 12}, {"dic", 12},     {"gru", 12},
};

// 0 for none.
int MonthNamed(std::string_view word) {
  const std::string folded = FoldCase(word);
  for (const MonthName& each : kMonthNames) {
    if (std::string_view(folded).starts_with(each.start)) return each.month;
  }
  return 0;
}

DateNumber CheckedDay(int year, int month, int day) noexcept {
  constexpr int kInEachMonth = 28;
  constexpr int kMostOfMonth = 31;
  const bool may_be = year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1;
  if (!may_be || day > kMostOfMonth) return 0;
  if (day > kInEachMonth && !IsValidDay(year, month, day)) return 0;
  return year * 10000 + month * 100 + day;
}

bool IsTimeBehind(std::string_view text) noexcept {
  if (text.empty()) return true;
  constexpr std::string_view kOfTimes = " \t0123456789:.,+-TZ[]ampAMPUTCGE";
  return text.find_first_not_of(kOfTimes) == std::string_view::npos;
}

// Three numbers with one character between them and nothing else, as most columns have them. False,
// with anything in `written`, for everything that takes a closer look.
bool ReadPlainDay(std::string_view text, WrittenDay& written) noexcept {
  constexpr std::size_t kMostDigits = 4;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t count = 0; count < 3; ++count) {
    if (count > 0 && (at == end || (*at != '.' && *at != '/' && *at != '-'))) return false;
    if (count > 0) ++at;
    const char* const start = at;
    std::int32_t number = 0;
    for (; at != end && IsAsciiDigit(*at); ++at) {
      if (static_cast<std::size_t>(at - start) == kMostDigits) return false;
      number = number * 10 + (*at - '0');
    }
    if (at == start) return false;
    written.numbers[count] = number;
    written.digits[count] = static_cast<std::uint8_t>(at - start);
  }
  written.is_day = at == end;
  return written.is_day;
}

WrittenDay AnyDay(std::string_view text) {
  constexpr std::size_t kLongestWord = 16;
  WrittenDay written;
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  written.is_blank = text.empty();
  std::size_t count = 0;
  while (!text.empty() && count < 3) {
    std::size_t size = 0;
    if (IsAsciiDigit(text.front())) {
      std::int32_t number = 0;
      for (; size < text.size() && IsAsciiDigit(text[size]); ++size) {
        if (size == 8) return written;
        number = number * 10 + (text[size] - '0');
      }
      written.numbers[count] = number;
      written.digits[count] = static_cast<std::uint8_t>(size);
    } else if (IsInMonthName(text.front())) {
      while (size < text.size() && size < kLongestWord && IsInMonthName(text[size])) ++size;
      const int month = MonthNamed(text.substr(0, size));
      if (month == 0 || written.named_month < 3) return written;
      written.numbers[count] = month;
      written.named_month = static_cast<std::uint8_t>(count);
    } else {
      return written;
    }
    text.remove_prefix(size);
    ++count;
    if (count == 1 && (size == 8 || size == 6) && written.named_month == 3) {
      written.is_run = true;
      break;
    }
    if (count == 3) break;
    // One separator, blanks beside it.
    std::size_t next = 0;
    while (next < text.size() && IsSeparator(text[next])) ++next;
    const bool is_joined = next == 0 && written.named_month == 3;
    if (is_joined || next > 3) return written;
    text.remove_prefix(next);
  }
  const bool has_all = written.is_run || count == 3;
  const bool is_too_long =
      !written.is_run && (written.digits[0] > 4 || written.digits[1] > 4 || written.digits[2] > 4);
  written.is_day = has_all && !is_too_long && IsTimeBehind(text);
  return written;
}

// A year of four digits in front goes by itself.
DateNumber DayIn(DayOrder order, const std::array<std::int32_t, 3>& numbers,
                 const std::array<std::uint8_t, 3>& digits) noexcept {
  struct Places {
    std::uint8_t year, month, day;
  };
  static constexpr std::array<Places, kDayOrders.size()> kPlaces = {
      Places{2, 1, 0}, Places{2, 0, 1}, Places{0, 1, 2}, Places{0, 2, 1}};
  if (digits[0] == 4 && order != DayOrder::YearDayMonth) order = DayOrder::YearMonthDay;
  const Places at = kPlaces[static_cast<std::size_t>(order)];
  if (digits[at.year] != 2 && digits[at.year] != 4) return 0;
  const int year = digits[at.year] == 2 ? YearOfTwoDigits(numbers[at.year]) : numbers[at.year];
  return CheckedDay(year, numbers[at.month], numbers[at.day]);
}

// Of six or eight digits in one piece.
DateNumber RunIn(int run, int digits, DayOrder order) noexcept {
  if (digits == 6) return DayIn(order, {run / 10000, run / 100 % 100, run % 100}, {2, 2, 2});
  const int year = run / 10000;
  if (year >= 1900 && year < 2100 && CheckedDay(year, run / 100 % 100, run % 100) != 0) return run;
  return DayIn(order, {run / 1000000, run / 10000 % 100, run % 10000}, {2, 2, 4});
}

}  // namespace

WrittenDay ReadWrittenDay(std::string_view text) {
  WrittenDay written;
  ReadWrittenDay(text, written);
  return written;
}

void ReadWrittenDay(std::string_view text, WrittenDay& written) {
  if (ReadPlainDay(text, written)) return;
  written = AnyDay(text);
}

DateNumber WrittenDay::In(DayOrder order) const noexcept {
  if (!is_day) return 0;
  if (is_run) return RunIn(numbers[0], digits[0], order);
  if (named_month < 3) {
    // "Mar 7, 2024", "7 Mar 2024", "2024 Mar 7".
    order = named_month == 0   ? DayOrder::MonthDayYear
            : named_month == 2 ? DayOrder::YearDayMonth
            : digits[0] == 4   ? DayOrder::YearMonthDay
                               : DayOrder::DayMonthYear;
  }
  return DayIn(order, numbers, digits);
}

DateNumber ReadDigitDay(std::string_view text) noexcept {
  constexpr std::size_t kDayDigits = 8;
  int number = 0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size() && count < kDayDigits; ++i) {
    const char character = text[i];
    const bool is_dash = character == '-' && (count == 4 || count == 6);
    if (is_dash || (count == 0 && character == ' ')) continue;
    if (!IsAsciiDigit(character)) return 0;
    number = number * 10 + (character - '0');
    ++count;
  }
  return count == kDayDigits ? CheckedDay(number / 10000, number / 100 % 100, number % 100) : 0;
}

}  // namespace tallyfold
