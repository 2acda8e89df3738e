// QIF files and exports of 100,000 entries, each beside a yardstick of the same run, and how they
// grow:
//   - reading beside a scan for line ends over the same bytes
//   - building the review, with duplicates, beside reading
//   - the exports beside a loop that sorts the same entries and appends the same fields

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "benchmarks/household_account.h"
#include "benchmarks/line_end_scan.h"
#include "benchmarks/quiet_store.h"
#include "exchange/export_options.h"
#include "exchange/qif_hints.h"
#include "exchange/qif_import.h"
#include "exchange/qif_review.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/entry_type.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kEntries = 100'000;

// Records of about 60 bytes, every fourth a check, in twenty categories over ten years.
std::string QifFile(std::size_t entries) {
  std::string text = "!Type:Bank\n";
  text.reserve(entries * 72);
  const auto two = [&text](std::size_t number) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
  };
  for (std::size_t i = 0; i < entries; ++i) {
    text += 'D';
    two(i / 28 % 12 + 1);
    text += '/';
    two(i % 28 + 1);
    text += '/';
    two(i / 336 % 10);
    if (i % 4 == 0) text += "\nN" + std::to_string(1000 + i);
    text += "\nT" + std::string(i % 3 == 0 ? "1," : "-") + std::to_string(100 + i % 900) + ".25";
    text += "\nPCorner Market " + std::to_string(i % 500);
    text += "\nMWeek " + std::to_string(i % 53);
    text += "\nLCategory " + std::to_string(i % 20) + "\n^\n";
  }
  return text;
}

const std::string& File() {
  static const std::string text = QifFile(kEntries);
  return text;
}

void BM_YardstickLineEnds(benchmark::State& state) {
  ScanLineEnds(state, File());
}
BENCHMARK(BM_YardstickLineEnds)->Unit(benchmark::kMillisecond);

// From the text of the file to all it holds.
void BM_Parse(benchmark::State& state) {
  const std::string text = QifFile(static_cast<std::size_t>(state.range(0)));
  for ([[maybe_unused]] auto _ : state) {
    const QifResult result = LDGRQIFImport(text).Parse();
    benchmark::DoNotOptimize(result.entries.data());
  }
}
BENCHMARK(BM_Parse)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void Commit(Ledger& ledger, QifReview& review, const std::shared_ptr<LDGRAccount>& account) {
  Change change(ledger, "Import", account);
  review.Commit(change, account, false);
  change.Close();
}

std::shared_ptr<LDGRAccount> AccountHolding(const QifResult& result) {
  auto account = std::make_shared<LDGRAccount>();
  QuietStore store;
  Ledger ledger(*store);
  QifReview review(result, result.entries, *account);
  Commit(ledger, review, account);
  return account;
}

// Every entry is in the account already.
void BM_ReviewOfDuplicates(benchmark::State& state) {
  const QifResult result = LDGRQIFImport(File()).Parse();
  const auto account = AccountHolding(result);
  for ([[maybe_unused]] auto _ : state) {
    const QifReview review(result, result.entries, *account);
    if (review.MarkedCount() != 0) state.SkipWithError("an entry was not found");
    benchmark::DoNotOptimize(review.entries().data());
  }
}
BENCHMARK(BM_ReviewOfDuplicates)->Unit(benchmark::kMillisecond);

void BM_ReviewOfNewEntries(benchmark::State& state) {
  const QifResult result = LDGRQIFImport(File()).Parse();
  const auto account = MakeHouseholdAccount(kEntries);
  for ([[maybe_unused]] auto _ : state) {
    const QifReview review(result, result.entries, *account);
    benchmark::DoNotOptimize(review.entries().data());
  }
}
BENCHMARK(BM_ReviewOfNewEntries)->Unit(benchmark::kMillisecond);

// The worst case: a date cannot be read, so that all twelve formats are tried.
void BM_Hints(benchmark::State& state) {
  const LDGRQIFImport import(File() + "!Type:Bank\nDnever\n^\n");
  const QifEntryList entries = import.Entries();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(HintsFor(import, entries, 20260101).doubts.size());
  }
}
BENCHMARK(BM_Hints)->Unit(benchmark::kMillisecond);

void BM_Commit(benchmark::State& state) {
  const QifResult result = LDGRQIFImport(QifFile(static_cast<std::size_t>(state.range(0)))).Parse();
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    auto account = std::make_shared<LDGRAccount>();
    auto review = std::make_unique<QifReview>(result, result.entries, *account);
    QuietStore store;
    auto ledger = std::make_unique<Ledger>(*store);
    state.ResumeTiming();
    Commit(*ledger, *review, account);
    state.PauseTiming();
    ledger.reset();
    review.reset();
    account.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_Commit)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// --- Exports ------------------------------------------------------------------------------------

LDGRAccount& Account() {
  static const std::shared_ptr<LDGRAccount> account = MakeHouseholdAccount(kEntries);
  return *account;
}

template <typename... Arguments>
void AppendNumber(std::string& text, Arguments... arguments) {
  std::array<char, 400> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), arguments...).ptr;
  text.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

// The fields of either export, a line each.
void BM_YardstickSortAndAppend(benchmark::State& state, bool is_table) {
  const LDGRAccount& account = Account();
  for ([[maybe_unused]] auto _ : state) {
    EntryList entries = account.GetEntries();
    std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
      return a->DatePrimaryCheckSecondaryIsGreaterThan(*b) < 0;
    });
    std::string text;
    text.reserve(entries.size() * 160);
    double balance = 0.0;
    const auto append = [&text](const std::string& field) {
      text += field;
      text += '\n';
    };
    const auto amount = [&text](double value) {
      AppendNumber(text, value, std::chars_format::fixed, 2);
      text += '\n';
    };
    const auto number = [&text](std::int32_t value) {
      AppendNumber(text, value);
      text += '\n';
    };
    for (const auto& entry : entries) {
      number(entry->GetDate());
      if (entry->GetCheckNumber() >= 0) number(entry->GetCheckNumber());
      append(entry->GetToFrom());
      append(entry->GetDescription());
      amount(entry->GetAmount());
      const auto type = account.AccountEntryTypeForNumber(entry->GetType());
      if (type != nullptr) append(type->GetName());
      if (is_table) {
        number(entry->GetNumber());
        amount(balance += entry->GetAmount());
      } else if (const auto& split = entry->GetSplit(); split != nullptr) {
        for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
          if (split->GetToFrom(line).empty()) continue;
          append(split->GetToFrom(line));
          append(split->GetDescription(line));
          amount(split->GetAmount(line));
        }
      }
    }
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK_CAPTURE(BM_YardstickSortAndAppend, qif, false)->Unit(benchmark::kMillisecond);

void BM_ExportQif(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(Account().asQIFStringWithOptions({}).data());
  }
}
BENCHMARK(BM_ExportQif)->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(BM_YardstickSortAndAppend, table, true)->Unit(benchmark::kMillisecond);

void BM_ExportText(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(Account().asTabDelimitedStringWithOptions({}).data());
  }
}
BENCHMARK(BM_ExportText)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks
