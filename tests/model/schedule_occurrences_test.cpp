#include "model/schedule_occurrences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace tallyfold {
namespace {

using Type = RepeatInterval;
using Days = std::vector<DateNumber>;

constexpr bool kFriday = true;
constexpr DateNumber kEndOfTime = 2'147'483'647;

// The uncommitted occurrences of the range, all of them and cut to one.
void ExpectOccurrences(const char* what, const Recurrence& recurrence, DateNumber from,
                       DateNumber to, const Days& days, const Days& committed = {}) {
  const CommittedDates dates(committed);
  EXPECT_EQ(UncommittedOccurrences(recurrence, dates, from, to), days) << what;
  const Days first(days.begin(), days.begin() + (days.empty() ? 0 : 1));
  EXPECT_EQ(UncommittedOccurrences(recurrence, dates, from, to, 1), first) << what;
  if (from != recurrence.start) return;
  Days ahead;
  for (const OccurrenceAhead& next : OccurrencesAhead(recurrence, dates, to, days.size() + 1)) {
    if (next.date) ahead.push_back(*next.date);
  }
  Days apart = days;
  apart.erase(std::unique(apart.begin(), apart.end()), apart.end());
  EXPECT_EQ(ahead, apart) << what << ", ahead";
}

TEST(Occurrences, FollowTheirRules) {
  ExpectOccurrences("once, on the first day asked for", {Type::Once, 1, 20040101}, 20040105,
                    20040301, {20040105});
  ExpectOccurrences("once, moved to no Friday", {Type::Once, 1, 20040501, kFriday}, 20040501,
                    20040501, {20040501});
  ExpectOccurrences("once, committed on any day", {Type::Once, 1, 20040101}, 20040101, 20040301, {},
                    {19990101});
  ExpectOccurrences("daily", {Type::Daily, 9, 20040227}, 20040101, 20040301,
                    {20040227, 20040228, 20040229, 20040301});
  ExpectOccurrences("daily over weekends", {Type::Daily, 1, 20040430, kFriday}, 20040501, 20040502,
                    {20040501, 20040502});
  ExpectOccurrences("daily, some committed", {Type::Daily, 1, 20040101}, 20040101, 20040104,
                    {20040101, 20040104}, {20040102, 20040103});
  ExpectOccurrences("daily, committed days out of order", {Type::Daily, 1, 20040101}, 20040101,
                    20040104, {20040101, 20040102, 20040104}, {20040103, 20040101, 20040103});
  ExpectOccurrences("weekly from within a week", {Type::Weekly, 1, 20040101}, 20040102, 20040122,
                    {20040108, 20040115, 20040122});
  ExpectOccurrences("weekly from before the start", {Type::Weekly, 1, 20040101}, 20031201, 20040110,
                    {20040101, 20040108});
  ExpectOccurrences("weekly on Saturdays", {Type::Weekly, 1, 20040501, kFriday}, 20040501, 20040507,
                    {20040501});
  ExpectOccurrences("fortnightly", {Type::TwoWeeks, 1, 20040101}, 20040109, 20040212,
                    {20040115, 20040129, 20040212});
  ExpectOccurrences("fortnightly on Sundays", {Type::TwoWeeks, 1, 20040502, kFriday}, 20040502,
                    20040516, {20040502, 20040516});
  ExpectOccurrences("monthly on the 31st", {Type::Monthly, 1, 20040131}, 20040131, 20040831,
                    {20040131, 20040331, 20040531, 20040731, 20040831});
  ExpectOccurrences("monthly on the 30th", {Type::Monthly, 1, 20040130}, 20040130, 20040331,
                    {20040130, 20040330});
  ExpectOccurrences("monthly on the 29th", {Type::Monthly, 1, 20041229}, 20041229, 20050401,
                    {20041229, 20050129, 20050329});
  ExpectOccurrences("monthly on the 29th of a leap year", {Type::Monthly, 1, 20031229}, 20040201,
                    20040401, {20040229, 20040329});
  ExpectOccurrences("monthly, Saturday and Sunday moved", {Type::Monthly, 1, 20040501, kFriday},
                    20040501, 20040801, {20040430, 20040601, 20040701, 20040730});
  ExpectOccurrences("monthly, the range tests the day before the move",
                    {Type::Monthly, 1, 20040501, kFriday}, 20040401, 20040430, {});
  ExpectOccurrences("monthly, committed under the moved day", {Type::Monthly, 1, 20040501, kFriday},
                    20040501, 20040601, {20040601}, {20040430});
  ExpectOccurrences("monthly, day check before the move", {Type::Monthly, 1, 20040131, kFriday},
                    20040101, 20040531, {20040130, 20040331, 20040531});
  ExpectOccurrences("yearly on 29 February", {Type::Yearly, 1, 20040229}, 20040229, 20080301,
                    {20040229, 20050301, 20060301, 20070301, 20080229});
  ExpectOccurrences("yearly, moved", {Type::Yearly, 1, 20040502, kFriday}, 20040502, 20050502,
                    {20040430, 20050502});
  ExpectOccurrences("ends of months", {Type::EndOfMonth, 1, 20040115}, 20040101, 20040531,
                    {20040131, 20040229, 20040331, 20040430, 20040531});
  ExpectOccurrences("ends of months, moved", {Type::EndOfMonth, 1, 20040131, kFriday}, 20040101,
                    20040331, {20040130, 20040227, 20040331});
  ExpectOccurrences("every three months on the 31st", {Type::ThreeMonths, 1, 20040131}, 20040131,
                    20041231, {20040131, 20040731, 20041031});
  ExpectOccurrences("ends of quarters", {Type::EndOfQuarter, 1, 20040215}, 20040101, 20041231,
                    {20040331, 20040630, 20040930, 20041231});
  ExpectOccurrences("ends of quarters from the 31st roll as they are",
                    {Type::EndOfQuarter, 1, 20031231}, 20031231, 20041231,
                    {20031231, 20040331, 20040930, 20041231, 20041231});
  ExpectOccurrences("every 3 days", {Type::EveryNDays, 3, 20040101}, 20040102, 20040110,
                    {20040104, 20040107, 20040110});
  ExpectOccurrences("every day, a weekend in one Friday", {Type::EveryNDays, 1, 20040429, kFriday},
                    20040429, 20040503, {20040429, 20040430, 20040503});
  ExpectOccurrences("every day, from a Sunday", {Type::EveryNDays, 1, 20040429, kFriday}, 20040502,
                    20040503, {20040430, 20040503});
  ExpectOccurrences("every 3 weeks over a weekend", {Type::EveryNWeeks, 3, 20040501, kFriday},
                    20040501, 20040612, {20040501, 20040522, 20040612});
  ExpectOccurrences("every 2 months on the 31st", {Type::EveryNMonths, 2, 20031231}, 20031231,
                    20041231, {20031231, 20040831, 20041031, 20041231});
  ExpectOccurrences("every 2 years", {Type::EveryNYears, 2, 20040229}, 20040301, 20080301,
                    {20060301, 20080229});
  ExpectOccurrences("every 2 quarters", {Type::EveryNQuarters, 2, 20040331}, 20040101, 20050331,
                    {20040331, 20050331});
  ExpectOccurrences("every 0 days", {Type::EveryNDays, 0, 20040101}, 20040101, kEndOfTime,
                    {20040101});
  ExpectOccurrences("every -1 weeks", {Type::EveryNWeeks, -1, 20040101}, 20030101, 20050101,
                    {20040101});
  ExpectOccurrences("every 0 months after the start", {Type::EveryNMonths, 0, 20040101}, 20040102,
                    kEndOfTime, {});
  ExpectOccurrences("every 0 years, committed", {Type::EveryNYears, 0, 20040101}, 20040101,
                    kEndOfTime, {}, {20040101});
  ExpectOccurrences("every so many days that there is no second",
                    {Type::EveryNDays, kEndOfTime, 20040101}, 20040101, kEndOfTime, {20040101});
  ExpectOccurrences("every so many years", {Type::EveryNYears, kEndOfTime, 20040101}, 20040101,
                    kEndOfTime, {20040101});
  ExpectOccurrences("no such rule", {static_cast<Type>(7), 1, 20040101}, 20040101, 20050101, {});
  ExpectOccurrences("a range that ends before it begins", {Type::Daily, 1, 20040101}, 20040201,
                    20040131, {});
  ExpectOccurrences("to the end of the calendar", {Type::Daily, 1, 20040101}, 99991230, kEndOfTime,
                    {99991230, 99991231});
  ExpectOccurrences("from the first day of all", {Type::Daily, 1, 10101}, -5, 10102,
                    {10101, 10102});
  ExpectOccurrences("a start before the year 1", {Type::Daily, 1, 1231}, 0, 20040101, {});
  ExpectOccurrences("once before the year 1", {Type::Once, 1, 0}, 20040101, 20040101, {});
  ExpectOccurrences("a start after the year 9999", {Type::Daily, 1, 100000101}, 0, kEndOfTime, {});
  ExpectOccurrences("a start that is no day", {Type::Monthly, 1, 20040230}, 20040101, 20040401,
                    {20040301, 20040401});
}

void ExpectFirst(const char* what, const Recurrence& recurrence, DateNumber first,
                 const Days& committed = {}) {
  EXPECT_EQ(FirstUncommittedOccurrence(recurrence, CommittedDates(committed)), first) << what;
}

TEST(Occurrences, HaveAFirstThatIsNotCommitted) {
  ExpectFirst("once", {Type::Once, 1, 20040101}, -1);
  ExpectFirst("no such rule", {static_cast<Type>(12), 1, 20040101}, -1);
  ExpectFirst("never started", {Type::Daily, 1, 0}, -1);
  ExpectFirst("daily", {Type::Daily, 1, 20040101}, 20040101);
  ExpectFirst("daily, the first committed", {Type::Daily, 1, 20040101}, 20040103,
              {20040101, 20040102});
  ExpectFirst("daily, a gap", {Type::Daily, 1, 20040101}, 20040102, {20040101, 20040103});
  ExpectFirst("every day, a weekend committed by its Friday",
              {Type::EveryNDays, 1, 20040430, kFriday}, 20040503, {20040430});
  ExpectFirst("monthly on the 31st", {Type::Monthly, 1, 20040131}, 20040331, {20040131});
  ExpectFirst("monthly, moved", {Type::Monthly, 1, 20040501, kFriday}, 20040430);
  ExpectFirst("the start alone", {Type::EveryNDays, 0, 20040101}, -1, {20040101});
  ExpectFirst("at the end of the calendar", {Type::Monthly, 1, 99991201}, -1, {99991201});
}

TEST(CommittedDays, AreFoundAndKeptInOrder) {
  CommittedDates dates;
  std::set<DateNumber> expected;
  std::mt19937 random(3);
  for (int i = 0; i < 60; ++i) {
    for (DateNumber day = 0; day <= 101; ++day) {
      ASSERT_EQ(dates.Contains(day), expected.contains(day)) << day;
    }
    const auto day = static_cast<DateNumber>(random() % 50 * 2 + 1);
    dates.Add(day);
    expected.insert(day);
    ASSERT_EQ(dates.days(), Days(expected.begin(), expected.end()));
  }
}

TEST(CommittedDays, OfAFileOutOfOrderStandAsTheyAreUntilOneIsAdded) {
  CommittedDates dates({5, 1, 5, 3});
  EXPECT_EQ(dates.days(), (Days{5, 1, 5, 3}));
  EXPECT_FALSE(dates.Contains(1));  // outside the first and the last
  EXPECT_FALSE(dates.Contains(4));
  EXPECT_FALSE(CommittedDates({1, 9, 3, 5, 10}).Contains(9));  // not where bisection looks
  EXPECT_TRUE(CommittedDates({1, 9, 10}).Contains(9));
  dates.Add(3);
  EXPECT_EQ(dates.days(), (Days{1, 3, 5, 5}));
  EXPECT_TRUE(dates.Contains(1));
}

}  // namespace
}  // namespace tallyfold
