// The cost of explaining a difference in an account with 5,000 unresolved entries, beside that of
// adding every two of their amounts.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "model/account.h"
#include "registers/difference_explanation.h"
#include "registers/reconciliation.h"

namespace tallyfold {
namespace {

constexpr std::size_t kEntries = 5000;

// Amounts of `step` cents and its multiples.
std::shared_ptr<LDGRAccount> AccountOf(int step, double difference) {
  std::mt19937 random(1);
  auto account = std::make_shared<LDGRAccount>();
  for (std::size_t i = 0; i < kEntries; ++i) {
    const auto cents = static_cast<double>(static_cast<int>(random() % 20'000'000) - 15'000'000);
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetAmount(cents * step / 100.0);
    account->AddEntry(entry);
  }
  account->setStatementBalance(difference);
  return account;
}

void Explain(benchmark::State& state, int step, double difference) {
  const auto account = AccountOf(step, difference);
  bool is_found = false;
  for (auto _ : state) {
    is_found = ExplainDifference(*account, ReconciliationOf(*account)).has_value();
    benchmark::DoNotOptimize(is_found);
  }
  state.counters["found"] = is_found ? 1.0 : 0.0;
}
// Sets abound: the second one found ends the search.
BENCHMARK_CAPTURE(Explain, ManySets, 1, -1234.56)->Unit(benchmark::kMillisecond);
// Nothing makes up an odd difference of even amounts: the search runs until it gives up.
BENCHMARK_CAPTURE(Explain, NoSet, 2, -1234.57)->Unit(benchmark::kMillisecond);
// Sets of three are looked through to the end before that.
BENCHMARK_CAPTURE(Explain, OutOfReach, 1, 1e9)->Unit(benchmark::kMillisecond);

void YardstickEveryPair(benchmark::State& state) {
  std::vector<std::int64_t> amounts;
  for (const auto& entry : AccountOf(1, 0.0)->GetEntries()) {
    amounts.push_back(static_cast<std::int64_t>(entry->GetAmount() * 100.0));
  }
  for (auto _ : state) {
    std::int64_t found = 0;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
      for (std::size_t j = i + 1; j < amounts.size(); ++j) {
        found += amounts[i] + amounts[j] == -123'457 ? 1 : 0;
      }
    }
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(YardstickEveryPair)->Unit(benchmark::kMillisecond);

// As few unresolved entries as a month leaves: every set is looked at.
void ExplainThirtyTwo(benchmark::State& state) {
  const auto account = AccountOf(1, 0.01);
  account->SetEntries({account->GetEntries().begin(), account->GetEntries().begin() + 32});
  for (auto _ : state) {
    benchmark::DoNotOptimize(ExplainDifference(*account, ReconciliationOf(*account)));
  }
}
BENCHMARK(ExplainThirtyTwo)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold
