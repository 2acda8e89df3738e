#include "model/date_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "model/calendar.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/clock.h"

namespace tallyfold {
namespace {

struct Name {
  std::string_view full;
  std::string_view brief;
};

constexpr std::array<Name, 7> kDays{{{"Sunday", "Sun"},
                                     {"Monday", "Mon"},
                                     {"Tuesday", "Tue"},
                                     {"Wednesday", "Wed"},
                                     {"Thursday", "Thu"},
                                     {"Friday", "Fri"},
                                     {"Saturday", "Sat"}}};

constexpr std::array<Name, 12> kMonths{{{"January", "Jan"},
                                        {"February", "Feb"},
                                        {"March", "Mar"},
                                        {"April", "Apr"},
                                        {"May", "May"},
                                        {"June", "Jun"},
                                        {"July", "Jul"},
                                        {"August", "Aug"},
                                        {"September", "Sep"},
                                        {"October", "Oct"},
                                        {"November", "Nov"},
                                        {"December", "Dec"}}};

// What a format consists of: parts of the date by their letters, and characters as they stand.
struct Token {
  char letter = 0;  // 0 for a character
  bool unpadded = false;
  std::string_view text;
};

Token TakeToken(std::string_view& format) {
  constexpr std::string_view kLetters = "aAbBdemyYHIMSp";
  Token token;
  std::size_t length = 1;
  if (format.front() == '%' && format.size() > 1) {
    token.unpadded = format[1] == '1';
    const std::size_t place = token.unpadded ? 2 : 1;
    if (place < format.size() && kLetters.find(format[place]) != std::string_view::npos) {
      token.letter = format[place];
      length = place + 1;
    } else if (format[1] == '%') {
      format.remove_prefix(1);
    }
  }
  token.text = format.substr(0, length);
  format.remove_prefix(length);
  return token;
}

void AppendNumber(std::string& result, int number, std::size_t width, bool unpadded) {
  std::array<char, 12> digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(number)).ptr;
  const auto length = static_cast<std::size_t>(end - digits.data());
  if (number < 0) result.push_back('-');
  if (!unpadded && length < width) result.append(width - length, '0');
  result.append(digits.data(), length);
}

void AppendPart(std::string& result, const CivilTime& time, const Token& token) {
  const auto number = [&](int value, std::size_t width = 2) {
    AppendNumber(result, value, width, token.unpadded);
  };
  switch (token.letter) {
    case 'a':
    case 'A': {
      const Name& day = kDays[static_cast<std::size_t>(DayOfWeek(time))];
      result.append(LocalizedText(token.letter == 'A' ? day.full : day.brief));
      break;
    }
    case 'b':
    case 'B': {
      const Name& month = kMonths[static_cast<std::size_t>(time.month - 1)];
      result.append(LocalizedText(token.letter == 'B' ? month.full : month.brief));
      break;
    }
    case 'd':
      return number(time.day);
    case 'e':
      return number(time.day, 1);
    case 'm':
      return number(time.month);
    case 'y':
      return number((time.year % 100 + 100) % 100);
    case 'Y':
      return number(time.year, 4);
    case 'H':
      return number(time.hour);
    case 'I':
      return number((time.hour + 11) % 12 + 1);
    case 'M':
      return number(time.minute);
    case 'S':
      return number(time.second);
    case 'p':
      result.append(LocalizedText(time.hour < 12 ? "AM" : "PM"));
      break;
    default:
      result.append(token.text);
  }
}

bool IsSpace(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool IsMark(char c) noexcept {
  return c == '/' || c == '-' || c == '.' || c == ',';
}
bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

void SkipSpace(std::string_view& text) noexcept {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
}

// Passes white space with at most one mark in it; false when there is neither.
bool SkipSeparator(std::string_view& text) noexcept {
  const std::size_t before = text.size();
  SkipSpace(text);
  if (!text.empty() && IsMark(text.front())) text.remove_prefix(1);
  SkipSpace(text);
  return text.size() < before;
}

int YearNearToday(int digits) {
  const int first = CurrentClock().LocalNow().year - 79;
  return first + ((digits - first) % 100 + 100) % 100;
}

// Reads a day part by part; every Take fails without a result on what does not fit.
class DayReader {
 public:
  DayReader(std::string_view text, ShortYears short_years)
      : rest_(text), short_years_(short_years) {
    SkipSpace(rest_);
  }

  bool TakePart(char letter) {
    switch (letter) {
      case 'a':
      case 'A':
        return TakeName(kDays) != 0;
      case 'b':
      case 'B':
        month_ = TakeName(kMonths);
        return month_ != 0;
      case 'd':
      case 'e':
        return TakeNumber(2, day_) > 0;
      case 'm':
        return TakeNumber(2, month_) > 0;
      case 'y':
      case 'Y': {
        const std::size_t digits = TakeNumber(4, year_);
        if (digits <= 2 && short_years_ == ShortYears::NearToday) {
          year_ = YearNearToday(year_);
        } else if (digits <= 2 && letter == 'y') {
          year_ = YearOfTwoDigits(year_);
        }
        return digits != 0 && (digits != 3 || letter == 'Y');
      }
      default:
        return false;  // no part of a day
    }
  }

  bool TakeText(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  bool TakeSeparator() { return SkipSeparator(rest_); }
  [[nodiscard]] bool AtEnd() const noexcept { return rest_.empty(); }

  [[nodiscard]] std::optional<DateNumber> Day() const {
    if (year_ < 1 || !IsValidDay(year_, month_, day_)) return std::nullopt;
    return NSCalendarDateToDateNumber(CivilTime{year_, month_, day_});
  }

 private:
  // The number of digits taken.
  std::size_t TakeNumber(std::size_t most, int& number) {
    SkipSpace(rest_);
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsDigit);
    const auto digits = std::min(most, static_cast<std::size_t>(end - rest_.begin()));
    std::from_chars(rest_.data(), rest_.data() + digits, number);
    rest_.remove_prefix(digits);
    return digits;
  }

  // Which of the names comes next, from 1; 0 for none of them.
  template <std::size_t size>
  int TakeName(const std::array<Name, size>& names) {
    SkipSpace(rest_);
    const auto end = std::find_if(rest_.begin(), rest_.end(),
                                  [](char c) { return IsSpace(c) || IsMark(c) || IsDigit(c); });
    const std::string_view word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    const auto is_word = [word](std::string_view key) {
      std::string name = LocalizedText(key);
      if (name.ends_with('.')) name.pop_back();
      return CompareIgnoringCase(name, word) == 0;
    };
    for (std::size_t i = 0; i < size; ++i) {
      if (!is_word(names[i].full) && !is_word(names[i].brief)) continue;
      rest_.remove_prefix(word.size());
      return static_cast<int>(i) + 1;
    }
    return 0;
  }

  std::string_view rest_;
  ShortYears short_years_;
  int year_ = 0;
  int month_ = 0;
  int day_ = 0;
};

std::optional<DateNumber> ParseDayAs(std::string_view text, std::string_view format,
                                     ShortYears short_years) {
  DayReader reader(text, short_years);
  SkipSeparator(format);
  while (!format.empty()) {
    if (SkipSeparator(format)) {
      if (!reader.TakeSeparator() && !format.empty()) return std::nullopt;
      continue;
    }
    const Token token = TakeToken(format);
    const bool taken =
        token.letter != 0 ? reader.TakePart(token.letter) : reader.TakeText(token.text);
    if (!taken) return std::nullopt;
  }
  return reader.AtEnd() ? reader.Day() : std::nullopt;
}

bool BeginsWithFourDigitsAndHyphen(std::string_view text) noexcept {
  return text.size() > 4 && text[4] == '-' && std::all_of(text.begin(), text.begin() + 4, IsDigit);
}

}  // namespace

std::string FormatDate(const CivilTime& time, std::string_view format) {
  const CivilTime date = Normalized(time);
  std::string result;
  while (!format.empty()) AppendPart(result, date, TakeToken(format));
  return result;
}

std::optional<DateNumber> ParseDay(std::string_view text, std::string_view format,
                                   ShortYears short_years) {
  SkipSpace(text);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return ParseDayAs(text, BeginsWithFourDigitsAndHyphen(text) ? "%Y-%m-%d" : format, short_years);
}

int YearOfTwoDigits(int digits) noexcept {
  return digits >= 69 ? 1900 + digits : 2000 + digits;
}

std::string DateFormatStringToShortestDateFormatString(std::string_view format) {
  const auto first_of = [format](std::string_view letters) {
    return std::min(format.find_first_of(letters), format.size());
  };
  const std::size_t day = first_of("de");
  const std::size_t month = first_of("bBm");
  const std::size_t year = first_of("yY");

  // A part that is missing counts as at the end, and parts at one place overwrite one another.
  std::array<std::string_view, 3> slots;
  if (day <= month) {
    slots[month < year ? 1 : 2] = "%1m";
  } else {
    slots[month >= year ? 1 : 0] = "%1m";
  }
  if (day >= month) {
    slots[day < year ? 1 : 2] = "%e";
  } else {
    slots[day < year ? 0 : 1] = "%e";
  }
  if (month <= year) {
    slots[day > year ? 1 : 2] = "%y";
  } else {
    slots[day > year ? 0 : 1] = "%y";
  }
  std::string result(slots[0]);
  return result.append("/").append(slots[1]).append("/").append(slots[2]);
}

std::string IsoDay(DateNumber day) {
  const std::int64_t whole = std::abs(static_cast<std::int64_t>(day));
  const auto year = static_cast<int>(whole / 10000);
  const auto month_and_day = static_cast<int>(whole % 10000);
  std::string text = day < 0 ? "-" : "";
  AppendNumber(text, year, 4, false);
  text += '-';
  AppendNumber(text, month_and_day / 100, 2, false);
  text += '-';
  AppendNumber(text, month_and_day % 100, 2, false);
  return text;
}

}  // namespace tallyfold
