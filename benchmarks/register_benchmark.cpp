// A register of 100,000 rows: from a click on a column, and from the end of the search delay, to
// all rows, running balances, count and sum. The yardstick of each is one std::stable_sort of
// 100,000 ready keys, done in turn with it: "times" is how often that goes into it. Then: what the
// rows cost that are shown, and no others.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/household_register.h"
#include "benchmarks/sort_yardstick.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kEntries = kSortedKeys;

// Its entries are in no order.
struct Register : HouseholdRegister {
  Register() : HouseholdRegister(kEntries) {
    EntryList entries = account->GetEntries();
    std::shuffle(entries.begin(), entries.end(), std::mt19937(1));
    account->SetEntries(std::move(entries));
    Reload();
  }

  static Register& Shared() {
    static Register shared;
    return shared;
  }

  void Reload() { rows.Reload(account->entryFilteredEntries()); }
  // The figures of all rows, as if all were shown.
  void AskForFigures() const {
    double sum = rows.TotalOfRows();
    const std::size_t count = rows.numberOfRowsInTableView();
    for (std::size_t row = 0; row < count; ++row) sum += rows.RunningBalanceOfRow(row);
    benchmark::DoNotOptimize(sum);
  }
};

template <typename Work>
void MeasureBesideSort(benchmark::State& state, Register& shown, const Work& work) {
  double ours = 0.0;
  double yardstick = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    const double seconds = SecondsFor([&] {
      work();
      shown.AskForFigures();
    });
    ours += seconds;
    yardstick += SortReadyKeys();
    state.SetIterationTime(seconds);
  }
  state.counters["yardstick_ms"] = 1000 * yardstick / static_cast<double>(state.iterations());
  state.counters["times"] = ours / yardstick;
  state.counters["rows"] = static_cast<double>(shown.rows.numberOfRowsInTableView());
}

void ClickOn(benchmark::State& state, const std::string& column) {
  Register& shown = Register::Shared();
  shown.account->setEntryFilterData("");
  shown.Reload();
  shown.rows.SelectRow(0);
  MeasureBesideSort(state, shown, [&] { shown.rows.ClickedTableColumn(column); });
}

void SearchFor(benchmark::State& state, const std::string& text) {
  Register& shown = Register::Shared();
  shown.rows.ClickedTableColumn("date");
  shown.account->setEntryFilterType(0);
  MeasureBesideSort(state, shown, [&] {
    // Every change of the text is a change of the account, which the figures have to notice.
    shown.account->setEntryFilterData("");
    shown.account->setEntryFilterData(text);
    shown.Reload();
  });
  shown.account->setEntryFilterData("");
  shown.Reload();
}

// Every cell of rows 50,000 to 50,040: the time must not depend on how many rows there are.
void ShowFortyRows(benchmark::State& state) {
  const Register& shown = Register::Shared();
  const std::size_t first = std::min<std::size_t>(static_cast<std::size_t>(state.range(0)),
                                                  shown.rows.numberOfRowsInTableView() - 41);
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t row = first; row <= first + 40; ++row) {
      for (const TableColumn& column : shown.table.Columns()) {
        benchmark::DoNotOptimize(shown.rows.tableView(column.identifier, row));
      }
    }
  }
}

void RegisterAll() {
  for (const char* column :
       {"check", "date", "type", "description", "amount", "cleared", "toFrom"}) {
    benchmark::RegisterBenchmark((std::string("Click/") + column).c_str(), ClickOn,
                                 std::string(column))
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  for (const char* text : {"e", "groceries", "zygote"}) {
    benchmark::RegisterBenchmark((std::string("Search/") + text).c_str(), SearchFor,
                                 std::string(text))
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::RegisterBenchmark("ShowFortyRows", ShowFortyRows)
      ->Arg(0)
      ->Arg(50'000)
      ->Unit(benchmark::kMicrosecond);
}

const bool registered = (RegisterAll(), true);

}  // namespace
}  // namespace tallyfold::benchmarks
