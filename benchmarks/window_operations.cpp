// What an order costs in a window on an account of 100,000 entries, off-screen, from the order to
// all of it painted anew: a click on a header, a search from its timer's firing, OK of a debit,
// undo. The yardstick, taken in turn with it, is the same order given to the same application
// without a window: "more_ms" is what the window adds, of which at most 30 are wanted, and 100 in
// all.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>

#include "app/entries/entry_editing.h"
#include "app/face/refresh.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "app/views/registers.h"
#include "benchmarks/household_account.h"
#include "benchmarks/sort_yardstick.h"
#include "benchmarks/window_run.h"
#include "desktop/test_window.h"
#include "filters/register_search.h"
#include "ledger/change.h"
#include "ledger/ledger.h"

namespace tallyfold::benchmarks {
namespace {

void Fill(LDGRController& app) {
  const auto& account = app.desk().accounts().back();
  Change change(app.ledger());
  change.Add(account, MakeHouseholdAccount(kSortedKeys)->GetEntries());
  while (account->GetNumberCount() < static_cast<std::int32_t>(kSortedKeys)) {
    static_cast<void>(change.NextNumber(account));
  }
  change.Close();
  app.refresh().ImportEnded();
}

struct Without {
  Without() {
    test.AddAccount("Household");
    Fill(test.app);
  }
  [[nodiscard]] LDGRController& app() { return test.app; }
  [[nodiscard]] FakeRunLoop& loop() { return test.loop; }
  void Paint() {}

  TestApplication test;
};

struct With {
  With() {
    static_cast<void>(test.Launch());
    test.Key(Qt::Key_Return);
    Fill(app());
    test.Settle();
  }
  [[nodiscard]] LDGRController& app() { return test.program->app(); }
  [[nodiscard]] FakeRunLoop& loop() { return test.loop; }
  void Paint() { QCoreApplication::processEvents(); }

  desktop::TestWindow test{""};
};

// An order in two halves, of which the second is measured.
struct HeaderClick {
  template <typename Place>
  static void Prepare(Place&) {}
  template <typename Place>
  static void Order(Place& place) {
    auto& rows = place.app().registers().entryDataSource();
    const bool by_day = rows.GetTableView()->HighlightedColumn() == "date";
    rows.ClickedTableColumn(by_day ? "description" : "date");
  }
};

struct Search {
  template <typename Place>
  static void Prepare(Place& place) {
    auto& search = place.app().search();
    search.Search_Field(search.State().entry.text.empty() ? "market" : "");
    place.Paint();
  }
  template <typename Place>
  static void Order(Place& place) {
    place.loop().AdvanceBy(std::chrono::milliseconds(500));
  }
};

struct OkOfDebit {
  template <typename Place>
  static void Prepare(Place& place) {
    auto& entries = place.app().entries();
    entries.New(EntryKind::Debit);
    auto typed = entries.Debit().State().typed;
    typed.amount = 12.5;
    typed.description = "Tea";
    entries.Debit().Read(typed);
    place.Paint();
  }
  template <typename Place>
  static void Order(Place& place) {
    place.app().entries().Debit().OK();
  }
};

struct UndoOfDebit {
  template <typename Place>
  static void Prepare(Place& place) {
    OkOfDebit::Prepare(place);
    OkOfDebit::Order(place);
    place.Paint();
  }
  template <typename Place>
  static void Order(Place& place) {
    place.app().undo().UndoStep();
  }
};

template <typename What, typename Place>
double Measured(Place& place) {
  What::Prepare(place);
  place.Paint();
  return SecondsFor([&place] {
    What::Order(place);
    place.Paint();
  });
}

template <typename What>
void InWindow(benchmark::State& state) {
  static With with;
  static Without without;
  double window = 0.0;
  double core = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    const double seconds = Measured<What>(with);
    window += seconds;
    core += Measured<What>(without);
    state.SetIterationTime(seconds);
  }
  const auto runs = static_cast<double>(state.iterations());
  state.counters["core_ms"] = 1000 * core / runs;
  state.counters["more_ms"] = 1000 * (window - core) / runs;
}
BENCHMARK(InWindow<HeaderClick>)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(InWindow<Search>)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(InWindow<OkOfDebit>)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(InWindow<UndoOfDebit>)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks

int main(int argc, char** argv) {
  return tallyfold::benchmarks::RunInWindows(argc, argv);
}
