// Registers on paper: how long until the first page is ready and until all have been made, for
// 10,000 and 100,000 entries, and what memory 5,000 pages take that are made and dropped one after
// the other. Items are entries: where the work is linear, each second takes as many of 100,000 as
// of 10,000.

#include <benchmark/benchmark.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "benchmarks/household_register.h"
#include "printing/pages.h"
#include "printing/plain_text.h"
#include "printing/register_document.h"

namespace tallyfold::benchmarks {
namespace {

HouseholdRegister& RegisterOfSize(std::size_t entries) {
  static std::map<std::size_t, std::unique_ptr<HouseholdRegister>> registers;
  auto& found = registers[entries];
  if (found == nullptr) found = std::make_unique<HouseholdRegister>(entries);
  return *found;
}

const FixedPitchMetric kMetric;

Pages MakePages(const HouseholdRegister& shown, bool with_details, double length) {
  Paper paper = PlainTextPaper();
  paper.portrait.height = paper.landscape.height = length;
  return Pages(RegisterDocument(shown.rows, LDGRPreferences(),
                                {"all entries", with_details, with_details, 20260302}),
               paper, Orientation::Automatic, kMetric);
}

void ReportEntries(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void FirstPage(benchmark::State& state) {
  const HouseholdRegister& shown = RegisterOfSize(static_cast<std::size_t>(state.range(0)));
  for ([[maybe_unused]] auto _ : state) {
    const Pages pages = MakePages(shown, state.range(1) != 0, 45);
    benchmark::DoNotOptimize(PageAsText(pages.PageAt(0)));
  }
  ReportEntries(state);
}

void AllPages(benchmark::State& state) {
  const HouseholdRegister& shown = RegisterOfSize(static_cast<std::size_t>(state.range(0)));
  std::size_t count = 0;
  for ([[maybe_unused]] auto _ : state) {
    const Pages pages = MakePages(shown, state.range(1) != 0, 45);
    count = pages.Count();
    for (std::size_t i = 0; i < count; ++i) benchmark::DoNotOptimize(PageAsText(pages.PageAt(i)));
  }
  state.counters["pages"] = static_cast<double>(count);
  ReportEntries(state);
}

// In kilobytes; 0 where the system does not tell.
double ResidentMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmRSS:") continue;
    double kilobytes = 0.0;
    status >> kilobytes;
    return kilobytes;
  }
  return 0.0;
}

// "grown_kb" is what the process grew by from the first page to the last.
void FiveThousandPages(benchmark::State& state) {
  const HouseholdRegister& shown = RegisterOfSize(100'000);
  double grown = 0.0;
  std::size_t count = 0;
  for ([[maybe_unused]] auto _ : state) {
    const Pages pages = MakePages(shown, true, 28);
    count = pages.Count();
    benchmark::DoNotOptimize(PageAsText(pages.PageAt(0)));
    const double before = ResidentMemory();
    for (std::size_t i = 0; i < count; ++i) benchmark::DoNotOptimize(PageAsText(pages.PageAt(i)));
    grown = ResidentMemory() - before;
  }
  state.counters["pages"] = static_cast<double>(count);
  state.counters["grown_kb"] = grown;
}

BENCHMARK(FirstPage)
    ->ArgNames({"entries", "details"})
    ->ArgsProduct({{10'000, 100'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(AllPages)
    ->ArgNames({"entries", "details"})
    ->ArgsProduct({{10'000, 100'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FiveThousandPages)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks
