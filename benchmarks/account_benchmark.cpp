// What an account does for all its entries at once: the balances of a whole register, the upgrade
// of an old record, the lists of texts for completion.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "benchmarks/generator.h"
#include "model/account.h"
#include "platform/ambient.h"
#include "plist/output.h"
#include "system/system_clock.h"

namespace tallyfold::benchmarks {
namespace {

using Seconds = std::chrono::duration<double>;

template <typename Work>
double SecondsFor(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

// One account with so many entries, in no order.
std::shared_ptr<LDGRAccount> ShuffledAccount(std::size_t count) {
  HouseholdFigures figures;
  figures.entries = count;
  figures.accounts = 1;
  plist::TreeBuilder tree;
  WriteHousehold(figures, tree);
  const auto accounts = tree.Take().DictionaryValue().Get("accounts").ArrayValue();
  auto account = LDGRAccount::accountByConsuming(accounts.At(0).DictionaryValue());
  EntryList entries = account->GetEntries();
  std::shuffle(entries.begin(), entries.end(), std::mt19937(1));
  account->SetEntries(std::move(entries));
  return account;
}

// All running balances beside one balance and a sort of the same entries, in turn. "times" is how
// often the latter goes into the former.
void AllRunningBalances(benchmark::State& state) {
  const auto account = ShuffledAccount(static_cast<std::size_t>(state.range(0)));
  double ours = 0;
  double yardstick = 0;
  for (auto _ : state) {
    const double seconds = SecondsFor(
        [&] { benchmark::DoNotOptimize(account->RunningBalances(account->GetEntries())); });
    ours += seconds;
    yardstick += SecondsFor([&] {
      benchmark::DoNotOptimize(account->GetBalance());
      EntryList sorted = account->GetEntries();
      std::stable_sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) {
        return a->DatePrimaryCheckSecondaryIsGreaterThan(*b) < 0;
      });
      benchmark::DoNotOptimize(sorted.data());
    });
    state.SetIterationTime(seconds);
  }
  state.counters["yardstick_ms"] = 1000 * yardstick / static_cast<double>(state.iterations());
  state.counters["times"] = ours / yardstick;
}
BENCHMARK(AllRunningBalances)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Accounts that hold next to nothing, of which a small file may have many: what each costs to read
// and to keep. Limits: 10 microseconds, 1 KB.
void AccountsWithoutEntries(benchmark::State& state) {
  constexpr std::size_t kAccounts = 10'000;
  SystemClock clock;
  const ScopedAmbient ambient({.clock = &clock});
  std::size_t bytes = 0;
  for (auto _ : state) {
    AccountList accounts;
    accounts.reserve(kAccounts);
    plist::Dictionary record;
    record.Set("version", 7);
    record.Set("number", 1);
    const std::size_t before = mallinfo2().uordblks;
    state.SetIterationTime(SecondsFor([&] {
      while (accounts.size() < kAccounts) {
        accounts.push_back(LDGRAccount::accountByConsuming(record));
      }
    }));
    bytes = mallinfo2().uordblks - before;
  }
  state.counters["bytes_each"] = static_cast<double>(bytes) / kAccounts;
  state.counters["per_second"] =
      benchmark::Counter(kAccounts, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(AccountsWithoutEntries)->UseManualTime()->Unit(benchmark::kMillisecond);

enum class Numbers { Distinct, InPairs, AllTheSame };

// An account of version 1 with so many entries.
plist::Dictionary OldRecord(std::int32_t count, Numbers numbers) {
  plist::Array entries;
  for (std::int32_t i = 0; i < count; ++i) {
    plist::Dictionary entry;
    entry.Set("number", numbers == Numbers::Distinct  ? i + 1
                        : numbers == Numbers::InPairs ? i / 2 + 1
                                                      : 1);
    entry.Set("date", 1'000'000'000 + i * 600);
    entry.Set("isDebit", i % 4 != 0);
    entry.Set("isCheck", i % 8 == 1);
    entry.Set("amount", -12.345);
    entries.Append(entry);
  }
  plist::Dictionary account;
  account.Set("version", 1);
  account.Set("name", "Old");
  account.Set("entries", entries);
  return account;
}

void UpgradeOfVersionOne(benchmark::State& state, Numbers numbers) {
  SystemClock clock;
  const ScopedAmbient ambient({.clock = &clock});
  for (auto _ : state) {
    const auto record = OldRecord(static_cast<std::int32_t>(state.range(0)), numbers);
    state.SetIterationTime(SecondsFor([&] { LDGRAccount::UpdateAccountDictionary(record); }));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(UpgradeOfVersionOne, distinct_numbers, Numbers::Distinct)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(UpgradeOfVersionOne, numbers_in_pairs, Numbers::InPairs)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(UpgradeOfVersionOne, one_number, Numbers::AllTheSame)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

// Every entry has a description of its own: the most there can be to compare.
std::shared_ptr<LDGRAccount> AccountOfDistinctTexts(std::int64_t count) {
  auto account = std::make_shared<LDGRAccount>();
  for (std::int64_t i = 0; i < count; ++i) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(static_cast<std::int32_t>(i));
    entry->SetIsDebit(true);
    entry->SetDescription("Weekly shopping, no. " + std::to_string(i * 7919 % count));
    account->AddEntry(std::move(entry));
  }
  return account;
}

void AllDescriptions(benchmark::State& state) {
  const auto account = AccountOfDistinctTexts(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(account->DebitDescriptions_All());
  state.SetComplexityN(state.range(0));
}
BENCHMARK(AllDescriptions)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

void LatestDescriptions(benchmark::State& state) {
  const auto account = AccountOfDistinctTexts(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(account->DebitDescriptions_Some(25));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(LatestDescriptions)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

}  // namespace
}  // namespace tallyfold::benchmarks
