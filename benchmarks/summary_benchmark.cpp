// A summary of 100,000 entries over 30 years: computed with every subtotal, period style by period
// style, and laid out. The yardstick is one std::stable_sort of the same entries by their days,
// done in turn with it: "times" is how often that goes into it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "benchmarks/household_account.h"
#include "summaries/account_summary.h"
#include "summaries/summary_choices.h"
#include "summaries/summary_layout.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kEntries = 100'000;

template <typename Work>
double SecondsFor(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The entries stand in no order.
LDGRAccount& Account() {
  static const std::shared_ptr<LDGRAccount> account = [] {
    auto made = MakeHouseholdAccount(kEntries);
    EntryList entries = made->GetEntries();
    std::shuffle(entries.begin(), entries.end(), std::mt19937(1));
    made->SetEntries(std::move(entries));
    return made;
  }();
  return *account;
}

double SortByDay() {
  EntryList entries = Account().GetEntries();
  return SecondsFor([&entries] {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto& a, const auto& b) { return a->GetDate() < b->GetDate(); });
    benchmark::DoNotOptimize(entries.data());
  });
}

template <typename Work>
void MeasureBesideSort(benchmark::State& state, const Work& work) {
  double ours = 0.0;
  double yardstick = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    const double seconds = SecondsFor(work);
    ours += seconds;
    yardstick += SortByDay();
    state.SetIterationTime(seconds);
  }
  state.counters["yardstick_ms"] = 1000 * yardstick / static_cast<double>(state.iterations());
  state.counters["times"] = ours / yardstick;
}

std::shared_ptr<LDGRAccountSummary> SummaryBy(std::int32_t period_style) {
  auto summary = std::make_shared<LDGRAccountSummary>();
  summary->setSubtotalPeriodStyle(period_style);
  summary->setDateRangeStyle(summary_choices::kCustom);
  summary->setStartDate(19950101);
  summary->setEndDate(20241231);
  summary->setAccount(&Account());
  return summary;
}

void Compute(benchmark::State& state, std::int32_t period_style) {
  const auto summary = SummaryBy(period_style);
  MeasureBesideSort(state, [&summary] { summary->Refresh(); });
  state.counters["periods"] = static_cast<double>(summary->summaryDictionary()->subtotals.size());
  state.counters["entries"] = static_cast<double>(summary->entries().size());
}

void LayOut(benchmark::State& state, std::int32_t period_style) {
  const auto summary = SummaryBy(period_style);
  summary->Refresh();
  MeasureBesideSort(state, [&summary] {
    benchmark::DoNotOptimize(LayOutSummary(*summary, "%m/%d/%y").periods.data());
  });
}

void RegisterAll() {
  for (const SummaryChoice& style : summary_choices::kPeriodStyles) {
    const std::string name(style.name);
    benchmark::RegisterBenchmark(("Compute/" + name).c_str(), Compute, style.number)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("LayOut/" + name).c_str(), LayOut, style.number)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
}

const bool registered = (RegisterAll(), true);

}  // namespace
}  // namespace tallyfold::benchmarks
