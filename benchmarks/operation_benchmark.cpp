// What an operation of the user costs in an account of 100,000 entries, with all that a window asks
// for after it: OK in the debit sheet, removal, undo, a cleared mark. The yardstick is one
// std::stable_sort of 100,000 ready keys, done in turn with it: "times" is how often that goes into
// it. At most 3 are wanted, and 0.3 for the cleared mark.

#include <benchmark/benchmark.h>

#include <memory>

#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/face/refresh.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "app/views/balance_field.h"
#include "app/views/registers.h"
#include "benchmarks/household_account.h"
#include "benchmarks/sort_yardstick.h"
#include "ledger/change.h"
#include "ledger/ledger.h"

namespace tallyfold::benchmarks {
namespace {

struct Window {
  Window() {
    const auto account = test.AddAccount("Household");
    Change change(test.app.ledger());
    change.Add(account, MakeHouseholdAccount(kSortedKeys)->GetEntries());
    while (account->GetNumberCount() < static_cast<std::int32_t>(kSortedKeys)) {
      static_cast<void>(change.NextNumber(account));
    }
    change.Close();
    test.app.refresh().ImportEnded();
    Look();
  }
  static Window& Shared() {
    static Window shared;
    return shared;
  }
  // The rows that fit into a window, and what stands below them.
  void Look() {
    for (auto* shown :
         {&test.app.registers().entryDataSource(), &test.app.registers().reconcileDataSource()}) {
      const auto count = static_cast<std::int32_t>(shown->numberOfRowsInTableView());
      const std::int32_t selected = shown->GetTableView()->SelectedRow();
      for (std::int32_t row = selected - 20; row < selected + 20; ++row) {
        if (row < 0 || row >= count) continue;
        for (const TableColumn& column : shown->GetTableView()->Columns()) {
          benchmark::DoNotOptimize(
              shown->tableView(column.identifier, static_cast<std::size_t>(row)));
        }
      }
    }
    benchmark::DoNotOptimize(test.app.balanceField().State());
  }
  // Of the middle of the register.
  void SelectMiddle() {
    auto& shown = test.app.registers().entryDataSource();
    shown.SelectRow(static_cast<std::int32_t>(shown.numberOfRowsInTableView() / 2));
  }

  TestApplication test;
};

template <typename Prepare, typename Work>
void Measure(benchmark::State& state, const Prepare& prepare, const Work& work) {
  Window& window = Window::Shared();
  double ours = 0.0;
  double yardstick = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    prepare(window);
    const double seconds = SecondsFor([&] {
      work(window);
      window.Look();
    });
    ours += seconds;
    yardstick += SortReadyKeys();
    state.SetIterationTime(seconds);
  }
  state.counters["yardstick_ms"] = 1000 * yardstick / static_cast<double>(state.iterations());
  state.counters["times"] = ours / yardstick;
}

void OpenDebit(Window& window) {
  auto& entries = window.test.app.entries();
  entries.New(EntryKind::Debit);
  auto typed = entries.Debit().State().typed;
  typed.amount = 12.5;
  typed.description = "Tea";
  entries.Debit().Read(typed);
}

void ConfirmDebit(Window& window) {
  window.test.app.entries().Debit().OK();
}

void OkOfDebit(benchmark::State& state) {
  Measure(state, OpenDebit, ConfirmDebit);
}

void Removal(benchmark::State& state) {
  Measure(
      state, [](Window& window) { window.SelectMiddle(); },
      [](Window& window) { window.test.app.entryRemoval().Entry_Delete(); });
}

void UndoOfDebit(benchmark::State& state) {
  Measure(
      state,
      [](Window& window) {
        OpenDebit(window);
        ConfirmDebit(window);
        window.Look();
      },
      [](Window& window) { window.test.app.undo().UndoStep(); });
}

void ClearedMark(benchmark::State& state) {
  Measure(
      state, [](Window& window) { window.SelectMiddle(); },
      [](Window& window) {
        auto& app = window.test.app;
        app.entries().TurnClearedOver(app.registers().entryDataSource().GetSelectedEntry());
      });
}

BENCHMARK(OkOfDebit)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Removal)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UndoOfDebit)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ClearedMark)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks
