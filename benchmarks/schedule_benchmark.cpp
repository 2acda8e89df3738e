// The cost of asking schedules what is due, beside that of one bisection for each occurrence
// already committed.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "model/account_schedule.h"
#include "model/calendar.h"
#include "model/date_number.h"

namespace tallyfold {
namespace {

constexpr DateNumber kToday = 20260131;

// A daily schedule, every day up to today committed.
std::shared_ptr<LDGRAccountSchedule> CommittedDailySchedule(DateNumber start) {
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetDate(start);
  schedule->SetRepeatIntervalType(static_cast<std::int32_t>(RepeatInterval::Daily));
  schedule->SetDescription("Coffee");
  schedule->SetAmount(-2.5);
  for (std::int64_t day = DayCountOf(start); day <= DayCountOf(kToday); ++day) {
    schedule->AddCommittedDate(DateNumberOfDayCount(day));
  }
  return schedule;
}

void DailySince1970(benchmark::State& state) {
  const auto schedule = CommittedDailySchedule(19700101);
  const CivilTime today = dateWithDateNumber(kToday);
  for (auto _ : state) benchmark::DoNotOptimize(schedule->EvaluateForDate(today));
  state.counters["days"] = static_cast<double>(schedule->GetCommittedDates().size());
}
BENCHMARK(DailySince1970)->Unit(benchmark::kMicrosecond);

void YardstickOneBisectionEach(benchmark::State& state) {
  const auto schedule = CommittedDailySchedule(19700101);
  const std::vector<DateNumber>& days = schedule->GetCommittedDates();
  for (auto _ : state) {
    for (const DateNumber day : days) {
      benchmark::DoNotOptimize(std::binary_search(days.begin(), days.end(), day));
    }
  }
}
BENCHMARK(YardstickOneBisectionEach)->Unit(benchmark::kMicrosecond);

// A commit forgets the remembered next date; asked again, it costs nothing.
void NextDateSince1970AfterACommit(benchmark::State& state) {
  const auto schedule = CommittedDailySchedule(19700101);
  for (auto _ : state) {
    schedule->AddCommittedDate(19700101);
    benchmark::DoNotOptimize(schedule->NextEntryDate());
  }
}
BENCHMARK(NextDateSince1970AfterACommit)->Unit(benchmark::kMicrosecond);

void NextDateSince1970Again(benchmark::State& state) {
  const auto schedule = CommittedDailySchedule(19700101);
  for (auto _ : state) benchmark::DoNotOptimize(schedule->NextEntryDate());
}
BENCHMARK(NextDateSince1970Again);

// What a tick of the reminder costs a user with many schedules, all up to date.
void TwoHundredDailyOver20Years(benchmark::State& state) {
  std::vector<std::shared_ptr<LDGRAccountSchedule>> schedules;
  for (int i = 0; i < 200; ++i) schedules.push_back(CommittedDailySchedule(20060131));
  const CivilTime today = dateWithDateNumber(kToday);
  for (auto _ : state) {
    for (const auto& schedule : schedules) benchmark::DoNotOptimize(schedule->DueDates(today));
  }
}
BENCHMARK(TwoHundredDailyOver20Years)->Unit(benchmark::kMillisecond);

// Nothing committed: an entry is made for each day of a year.
void EntriesOfADailyYear(benchmark::State& state) {
  auto schedule = CommittedDailySchedule(20250131);
  auto fresh = std::make_shared<LDGRAccountSchedule>(schedule->asDictionary());
  fresh->SetDate(20270101);
  for (auto _ : state) benchmark::DoNotOptimize(fresh->EntriesFromDate(20270101, 20271231));
}
BENCHMARK(EntriesOfADailyYear)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tallyfold
