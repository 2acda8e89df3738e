#include "model/account_schedule.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/calendar.h"
#include "model/plist_literals.h"

namespace tallyfold {
namespace {

using Days = std::vector<DateNumber>;
using Lines = std::vector<std::string>;

constexpr std::int32_t kForever = 1;
constexpr std::int32_t kCount = 2;
constexpr std::int32_t kDate = 3;

plist::Dictionary WholeSchedule() {
  plist::Dictionary record = LDGRAccountEntry().asDictionary();
  record.Set("date", 20040101);
  record.Set("number", 5);
  record.Set("amount", -20.0);
  record.Set("description", "Rent");
  record.Set("repeatIntervalType", 20);
  record.Set("repeatInterval", 3);
  record.Set("repeatUntilType", 2);
  record.Set("repeatUntil", 10);
  record.Set("usePrecedingFriday", true);
  record.Set("committedDates", List({20040101, 20040102}));
  return record;
}

TEST(Schedules, LogWhatIsMissingOrWrongAfterTheirEntry) {
  FakeAmbient ambient;
  const LDGRAccountSchedule unread(std::nullopt);
  EXPECT_TRUE(ambient.log.Lines().empty());
  const plist::Dictionary defaults = unread.asDictionary();

  EXPECT_EQ(LDGRAccountSchedule(Dict({})).asDictionary(), defaults);
  const Lines log = ambient.log.Take();
  ASSERT_EQ(log.size(), 9 + 6U);
  EXPECT_EQ(
      Lines(log.begin() + 9, log.end()),
      (Lines{"No repeatIntervalType found for schedule.", "No repeatInterval found for schedule.",
             "No repeatUntilType found for schedule.", "No repeatUntil found for schedule.",
             "No usePrecedingFriday found for schedule.",
             "No committedDates found for schedule."}));

  for (const char* key : {"repeatIntervalType", "repeatInterval", "repeatUntilType", "repeatUntil",
                          "usePrecedingFriday", "committedDates"}) {
    plist::Dictionary record = WholeSchedule();
    record.Set(key, "1");
    plist::Dictionary expected = WholeSchedule();
    expected.Set(key, defaults.Get(key));
    EXPECT_EQ(LDGRAccountSchedule(record).asDictionary(), expected);
    EXPECT_EQ(ambient.log.Take(),
              Lines{std::string(key) + " is in the wrong format for schedule."});
  }
  plist::Dictionary record = WholeSchedule();
  record.Set("committedDates", List({20040104, "x", 20040101}));
  EXPECT_EQ(LDGRAccountSchedule(record).GetCommittedDates(), (Days{20040104, 20040101}));
  EXPECT_EQ(ambient.log.Take(), Lines{"committedDates is in the wrong format for schedule."});
}

TEST(Schedules, MakeEntriesOfTheirTemplate) {
  const LDGRAccountSchedule schedule(WholeSchedule());
  const EntryList entries = schedule.EntriesFromDate(20040101, 20040110);
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0]->GetDate(), 20040107);
  EXPECT_EQ(entries[1]->GetDate(), 20040109);  // Saturday moved
  EXPECT_EQ(entries[0]->GetNumber(), 5);
  EXPECT_EQ(KeysOf(entries[0]->asDictionary()), KeysOf(LDGRAccountEntry().asDictionary()));
  EXPECT_EQ(schedule.EntryForDate(-1)->GetDate(), 20040101);  // no such day
}

TEST(Schedules, MoveWeekendsToFridayOnlyWhenAsked) {
  LDGRAccountSchedule schedule;
  const CivilTime sunday{2004, 8, 1, 9, 30};
  EXPECT_EQ(schedule.AdjustDateForUsePrecedingFriday(sunday), sunday);
  schedule.SetUsePrecedingFriday(true);
  EXPECT_EQ(schedule.AdjustDateForUsePrecedingFriday(sunday), (CivilTime{2004, 7, 30, 9, 30}));
  EXPECT_EQ(schedule.AdjustDateForUsePrecedingFriday({2004, 7, 31}), (CivilTime{2004, 7, 30}));
  EXPECT_EQ(schedule.AdjustDateForUsePrecedingFriday({2004, 8, 2}), (CivilTime{2004, 8, 2}));
}

struct Plan {
  DateNumber start;
  std::int32_t type;
  bool friday;
  std::int32_t until_type;
  std::int32_t until;
};

void ExpectDue(const char* what, const Plan& plan, DateNumber day, const Days& due,
               const Days& committed = {}) {
  LDGRAccountSchedule schedule;
  schedule.SetDate(plan.start);
  schedule.SetRepeatIntervalType(plan.type);
  schedule.SetUsePrecedingFriday(plan.friday);
  schedule.SetRepeatUntilType(plan.until_type);
  schedule.SetRepeatUntil(plan.until);
  for (const DateNumber date : committed) schedule.AddCommittedDate(date);
  CivilTime evening = dateWithDateNumber(day);
  evening.hour = 23;
  EXPECT_EQ(schedule.DueDates(evening), due) << what;
  Days entries;
  for (const auto& entry : schedule.EvaluateForDate(evening)) entries.push_back(entry->GetDate());
  EXPECT_EQ(entries, due) << what;
}

// 30 April 2004 is a Friday.
TEST(Schedules, AreDueAsTheirUntilTypeHasIt) {
  ExpectDue("forever", {20040428, 1, false, kForever, 0}, 20040430, {20040428, 20040429, 20040430});
  ExpectDue("forever, not yet started", {20040501, 1, false, kForever, 0}, 20040430, {});
  ExpectDue("a Sunday's occurrence on Friday", {20040502, 4, true, kForever, 0}, 20040430,
            {20040430});
  ExpectDue("a Sunday's occurrence on Thursday", {20040502, 4, true, kForever, 0}, 20040429, {});
  ExpectDue("a Sunday's occurrence on Saturday", {20040502, 4, true, kForever, 0}, 20040501,
            {20040430});
  ExpectDue("a Sunday's occurrence that does not move", {20040502, 4, false, kForever, 0}, 20040430,
            {});
  ExpectDue("weekly on Sundays, due on Friday though it does not move",
            {20040502, 2, true, kForever, 0}, 20040430, {20040502});
  ExpectDue("once, when it has started", {20040428, 0, false, kForever, 0}, 20040430, {20040428});
  ExpectDue("once, committed", {20040428, 0, false, kForever, 0}, 20040430, {}, {20040428});
  ExpectDue("three in all, one committed", {20040101, 1, false, kCount, 3}, 20040430,
            {20040102, 20040103}, {20040101});
  ExpectDue("three in all, all committed", {20040101, 1, false, kCount, 3}, 20040430, {},
            {20031201, 20031202, 20031203});
  ExpectDue("fewer than none in all", {20040101, 1, false, kCount, -2'147'483'647 - 1}, 20040430,
            {});
  ExpectDue("twice in all, a weekend counts once", {20040430, 20, true, kCount, 2}, 20040504,
            {20040430, 20040503});
  ExpectDue("until a day that is over", {20040427, 1, false, kDate, 20040428}, 20040430,
            {20040427, 20040428});
  ExpectDue("until a day to come", {20040429, 1, false, kDate, 20040505}, 20040430,
            {20040429, 20040430});
  ExpectDue("until before the start", {20040429, 1, false, kDate, 20040401}, 20040430, {});
  ExpectDue("until Sunday, on Friday", {20040502, 4, true, kDate, 20040502}, 20040430, {20040430});
  ExpectDue("until Saturday, Sunday's on Friday", {20040502, 4, true, kDate, 20040501}, 20040430,
            {});
  ExpectDue("until Saturday, Saturday's on Friday", {20040501, 4, true, kDate, 20040501}, 20040430,
            {20040430});
  ExpectDue("until Friday, Saturday's on Friday", {20040501, 4, true, kDate, 20040430}, 20040430,
            {});
  ExpectDue("until Sunday, on Saturday", {20040502, 4, true, kDate, 20040502}, 20040501,
            {20040430});
  ExpectDue("until Saturday, on Saturday", {20040502, 4, true, kDate, 20040501}, 20040501, {});
  ExpectDue("no such until type", {20040101, 1, false, 0, 0}, 20040430, {});
  ExpectDue("beyond the calendar", {99991231, 1, true, kForever, 0}, 1000000101, {99991231});
}

TEST(Schedules, HaveANextDateThatFollowsEveryChange) {
  using Schedule = LDGRAccountSchedule;
  const std::pair<void (*)(Schedule&), DateNumber> changes[] = {
      {[](Schedule& s) { s.SetDate(20040101); }, -1},  // once
      {[](Schedule& s) { s.SetRepeatIntervalType(1); }, 20040101},
      {[](Schedule& s) { s.CommitEntry(s.EntryForDate(20040101).get()); }, 20040102},
      {[](Schedule& s) { s.CommitEntry(nullptr); }, 20040102},
      {[](Schedule& s) { s.SetRepeatUntilType(kCount), s.SetRepeatUntil(1); }, -1},
      {[](Schedule& s) { s.SetRepeatUntil(2); }, 20040102},
      {[](Schedule& s) { s.SetRepeatUntilType(kDate), s.SetRepeatUntil(20040102); }, 20040102},
      {[](Schedule& s) { s.SetRepeatUntil(20040101); }, -1},
      {[](Schedule& s) { s.SetRepeatUntil(20031231); }, -1},
      {[](Schedule& s) { s.SetRepeatUntilType(4); }, -1},
      {[](Schedule& s) { s.SetRepeatUntilType(kForever), s.SetRepeatIntervalType(20); }, 20040102},
      {[](Schedule& s) { s.SetRepeatInterval(30); }, 20040131},
      {[](Schedule& s) { s.SetUsePrecedingFriday(true); }, 20040130},
      {[](Schedule& s) { s.SetDate(20040202); }, 20040202},
  };
  Schedule schedule;
  for (const auto& [change, next] : changes) {
    change(schedule);
    EXPECT_EQ(schedule.NextEntryDate(), next);
  }
  EXPECT_TRUE(schedule.DateIsCommitted(20040101));
}

// A moved occurrence of the until day lies before it, and one after it may move to it.
TEST(Schedules, TestTheirNextDateAgainstTheUntilDayAfterTheMove) {
  LDGRAccountSchedule schedule;
  schedule.SetDate(20040402);
  schedule.SetRepeatIntervalType(4);
  schedule.SetUsePrecedingFriday(true);
  schedule.SetRepeatUntilType(kDate);
  schedule.SetRepeatUntil(20040430);
  schedule.AddCommittedDate(20040402);
  EXPECT_EQ(schedule.NextEntryDate(), 20040430);
}

TEST(Schedules, SortByNextDateThenNumberAndThoseWithoutLast) {
  const auto make = [](std::int32_t type, DateNumber start, std::int32_t number) {
    auto schedule = std::make_shared<LDGRAccountSchedule>();
    schedule->SetRepeatIntervalType(type);
    schedule->SetDate(start);
    schedule->SetNumber(number);
    return schedule;
  };
  const ScheduleList in_order{make(1, 20040101, 9), make(2, 20040102, 3), make(3, 20040102, 7),
                              make(0, 20030101, 1), make(0, 20020101, 2)};
  for (std::size_t i = 0; i < in_order.size(); ++i) {
    for (std::size_t j = 0; j < in_order.size(); ++j) {
      const int order = i == j ? 0 : (i > j ? 1 : -1);
      EXPECT_EQ(in_order[i]->NextEntryDateIsGreaterThan(*in_order[j]), order) << i << ' ' << j;
      EXPECT_EQ(in_order[i]->NextEntryDateIsGreaterThan_Reversed(*in_order[j]), -order);
    }
  }
}

}  // namespace
}  // namespace tallyfold
