#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "model/date_number.h"

namespace tallyfold {

// In which order a column of days has its numbers, where a day does not tell by itself.
enum class DayOrder : std::uint8_t { DayMonthYear, MonthDayYear, YearMonthDay, YearDayMonth };
inline constexpr std::array<DayOrder, 4> kDayOrders = {
    DayOrder::DayMonthYear, DayOrder::MonthDayYear, DayOrder::YearMonthDay, DayOrder::YearDayMonth};

// A day as a bank writes it, with or without a time behind it: "07.03.2024", "3/7/24",
// "2024-03-07T10:00:00Z", "20240307", "7 Mar 2024". A month may be a name, or the beginning of one,
// in English, German, French, Spanish, Italian, Dutch, Polish or Portuguese.
struct WrittenDay {
  std::array<std::int32_t, 3> numbers{};
  std::array<std::uint8_t, 3> digits{};
  // The place of a month that has a name, else 3.
  std::uint8_t named_month = 3;
  bool is_day = false;    // three numbers that may be one
  bool is_blank = false;  // no text at all
  // Eight or six digits in one piece, the first of `numbers`.
  bool is_run = false;

  // The day in that order; a year of four digits in front and a month by name go by themselves. A
  // year of two digits is 1969 to 2068. 0 where there is no such day.
  [[nodiscard]] DateNumber In(DayOrder order) const noexcept;
};

// Linear.
[[nodiscard]] WrittenDay ReadWrittenDay(std::string_view text);
// The same into one that is as it was made.
void ReadWrittenDay(std::string_view text, WrittenDay& written);

// The day of the eight digits that a text begins with, such as "20240307120000[-5:EST]", or of
// "2024-03-07T...". 0 for none.
[[nodiscard]] DateNumber ReadDigitDay(std::string_view text) noexcept;

}  // namespace tallyfold
