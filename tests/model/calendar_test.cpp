#include "model/calendar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>

#include "fakes/fake_ambient.h"
#include "model/date_number.h"
#include "model/day_field.h"

namespace tallyfold {

// For messages of failed tests.
void PrintTo(const CivilTime& time, std::ostream* out) {
  *out << time.year << '-' << time.month << '-' << time.day << ' ' << time.hour << ':'
       << time.minute << ':' << time.second;
}

namespace {

constexpr std::int64_t kFarthest = std::numeric_limits<std::int64_t>::max();
constexpr int kFarthestInt = std::numeric_limits<int>::max();

TEST(Calendar, AgreesOnEveryDayOfTheYears1To9999) {
  std::int64_t days = DayCount(1, 1, 1);
  std::chrono::sys_days expected = std::chrono::year{1} / 1 / 1;
  for (; expected.time_since_epoch().count() <= 2'932'896; expected += std::chrono::days{1}) {
    const std::chrono::year_month_day date{expected};
    const CivilTime time{static_cast<int>(date.year()),
                         static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day()))};
    ASSERT_EQ(TimeFromDayCount(days), time);
    ASSERT_EQ(DayCount(time.year, time.month, time.day), days);
    ASSERT_EQ(DateNumberOfDayCount(days), dateNumber(time));
    ASSERT_EQ(DayCountOf(dateNumber(time)), days);
    ASSERT_EQ(DayOfWeekOfDayCount(days),
              static_cast<int>(std::chrono::weekday{expected}.c_encoding()));
    ++days;
  }
  EXPECT_EQ(DateNumberOfDayCount(days), 100000101);
}

TEST(Calendar, RollsWhatIsOutOfRange) {
  const struct {
    CivilTime time;
    CivilTime normal;
  } cases[] = {{{2004, 2, 30}, {2004, 3, 1}},
               {{2003, 2, 30}, {2003, 3, 2}},
               {{2100, 2, 29}, {2100, 3, 1}},
               {{2004, 13, 1}, {2005, 1, 1}},
               {{2004, 0, 0}, {2003, 11, 30}},
               {{2004, -11, -1}, {2002, 12, 30}},
               {{0, 0, 0}, {-1, 11, 30}},
               {{2004, 12, 31, 23, 59, 60}, {2005, 1, 1}},
               {{2004, 1, 1, 0, 0, -1}, {2003, 12, 31, 23, 59, 59}},
               {{2004, 1, 1, -25, 61}, {2003, 12, 31, 0, 1}},
               {{kFarthestInt, kFarthestInt, kFarthestInt}, {5'000'000, 12, 31}},
               {{-kFarthestInt, -kFarthestInt, -kFarthestInt}, {-5'000'000, 1, 1}}};
  for (const auto& c : cases) {
    const CivilTime normal = Normalized(c.time);
    EXPECT_EQ(DayCount(normal.year, normal.month, normal.day),
              DayCount(c.normal.year, c.normal.month, c.normal.day));
    const bool saturated = normal.year == 5'000'000 || normal.year == -5'000'000;
    EXPECT_TRUE(saturated || normal == c.normal) << normal.hour << ':' << normal.minute;
  }
}

TEST(Calendar, AddsToTimes) {
  const CivilTime noon{2004, 1, 31, 12, 30, 15};
  const struct {
    CivilTime sum;
    CivilTime expected;
  } cases[] = {{AddMonths(noon, 1), {2004, 3, 2, 12, 30, 15}},
               {AddMonths(noon, 13), {2005, 3, 3, 12, 30, 15}},
               {AddMonths(noon, -2), {2003, 12, 1, 12, 30, 15}},
               {AddMonths(noon, -1), {2003, 12, 31, 12, 30, 15}},
               {AddMonths({2004, 2, 30}, 12), {2005, 3, 1}},  // the start rolls first
               {AddYears({2004, 2, 29}, 1), {2005, 3, 1}},
               {AddYears({2004, 2, 29}, 4), {2008, 2, 29}},
               {AddDays(noon, 30), {2004, 3, 1, 12, 30, 15}},
               {AddDays({1970, 1, 1}, -719'163), {0, 12, 31}},
               {AddSeconds(noon, 41'385), {2004, 2, 1}},
               {AddSeconds(noon, -45'016), {2004, 1, 30, 23, 59, 59}},
               {AddSeconds({1970, 1, 1}, 1'000'000'000), {2001, 9, 9, 1, 46, 40}},
               {AddMonths({}, kFarthest), {5'000'000, 12, 31}},
               {AddYears({}, -kFarthest), {-5'000'000, 1, 1}},
               {AddDays({}, kFarthest), {5'000'000, 12, 31}},
               {AddSeconds({-5'000'000, 1, 1}, -kFarthest), {-5'000'000, 1, 1}}};
  for (const auto& c : cases) {
    CivilTime sum = c.sum;
    // The time of day beyond the last and before the first day is of no interest.
    if (sum.year == 5'000'000 || sum.year == -5'000'000) sum.hour = sum.minute = sum.second = 0;
    EXPECT_EQ(sum, c.expected);
  }
}

TEST(Calendar, KnowsDaysOfWeekYearAndMonth) {
  EXPECT_EQ(DayOfWeek({2004, 3, 7}), 0);
  EXPECT_EQ(DayOfWeek({2004, 3, 6, 23, 59, 60}), 0);
  EXPECT_EQ(DayOfWeek({-4, 1, 1}), DayOfWeek({396, 1, 1}));
  EXPECT_EQ(DayOfYear({2004, 12, 31}), 366);
  EXPECT_EQ(DayOfYear({2100, 12, 31}), 365);
  EXPECT_TRUE(IsValidDay(2000, 2, 29));
  EXPECT_FALSE(IsValidDay(1900, 2, 29));
  EXPECT_FALSE(IsValidDay(2004, 4, 31));
  EXPECT_FALSE(IsValidDay(2004, 13, 1));
  EXPECT_FALSE(IsValidDay(2004, 1, 0));
}

TEST(DateNumbers, StandForMidnights) {
  EXPECT_EQ(NSCalendarDateToDateNumber(std::nullopt), 19700101);
  EXPECT_EQ(NSCalendarDateToDateNumber(CivilTime{2024, 3, 7, 23, 59, 59}), 20240307);
  EXPECT_EQ(dateWithDateNumber(19700101), (CivilTime{1970, 1, 1, 0, 0, 0}));
  EXPECT_EQ(dateWithDateNumber(20040230), (CivilTime{2004, 3, 1}));
  EXPECT_EQ(DateNumberToNSCalendarDate(20041399), (CivilTime{2005, 4, 9}));
  EXPECT_EQ(DateNumberToNSCalendarDate(0), (CivilTime{-1, 11, 30}));
  EXPECT_EQ(DateNumberOfDayCount(DayCountOf(20040230)), 20040301);
  EXPECT_EQ(NSCalendarDateToDateNumber(CivilTime{5'000'000, 1, 1}), 2'147'483'647);
  EXPECT_EQ(NSCalendarDateToDateNumber(CivilTime{-5'000'000, 1, 1}), -2'147'483'647 - 1);
}

TEST(DateNumbers, AreTodaysByTheWallClock) {
  FakeAmbient ambient;
  ambient.clock.SetZone(FixedZone(std::chrono::hours{2}));
  ambient.clock.SetLocal({2004, 3, 8, 0, 30});
  EXPECT_EQ(TodaysDateNumber(), 20040308);
}

TEST(DayFields, AreLimitedToTheirMonth) {
  const struct {
    std::int32_t month;
    std::int32_t year;
    std::int32_t maximum;
  } cases[] = {{1, 2004, 31},  {4, 2004, 30},  {6, 2004, 30}, {9, 2004, 30}, {11, 2004, 30},
               {12, 2004, 31}, {2, 2004, 29},  {2, 2001, 28}, {2, 2000, 29}, {2, 1900, 29},
               {2, 2100, 29},  {13, 2004, 29}, {0, 2001, 28}, {2, -4, 29}};
  for (const auto& c : cases) {
    for (const std::int32_t day : {1, 28, 31}) {
      DayField field{31, day};
      TweakDayField(field, c.month, c.year);
      EXPECT_EQ(field.maximum, c.maximum) << c.month << ' ' << c.year;
      EXPECT_EQ(field.day, std::min(day, c.maximum)) << c.month << ' ' << c.year;
    }
  }
}

}  // namespace
}  // namespace tallyfold
