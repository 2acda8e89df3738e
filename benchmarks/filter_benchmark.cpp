// Every filter type over 100,000 entries. A text filter's yardstick is one memmem() for each text
// it looks through, over the same texts: those of the fields themselves, or for what has no text
// of its own (amounts, check numbers, types) texts made beforehand.

#include <benchmark/benchmark.h>
#include <string.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/household_account.h"
#include "filters/filter.h"
#include "filters/filter_types.h"
#include "model/account.h"
#include "model/amounts.h"
#include "model/current_account.h"
#include "platform/ambient.h"
#include "platform/clock.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kEntries = 100'000;

LDGRAccount& Account() {
  static const std::shared_ptr<LDGRAccount> account = MakeHouseholdAccount(kEntries);
  SetCurrentAccount(account.get());
  return *account;
}

// A common letter, a word of some entries, a word of none.
constexpr std::array<const char*, 3> kTexts = {"e", "groceries", "zygote"};
constexpr std::array<const char*, 3> kDigits = {"1", "12.5", "99999"};

std::vector<std::string> MadeTexts(std::int32_t type) {
  std::vector<std::string> texts;
  texts.reserve(kEntries);
  for (const auto& entry : Account().GetEntries()) {
    if (type == 14) {
      texts.push_back(FixedAmountString(entry->GetAmount()));
    } else if (type == 15) {
      texts.push_back(entry->IsCheck() ? std::to_string(entry->GetCheckNumber()) : "");
    } else if (type == 12 && entry->IsTransfer()) {
      texts.emplace_back("Transfer");
    } else if (type == 12) {
      texts.push_back(Account().AccountEntryTypeForNumber(entry->GetType())->GetName());
    } else {
      texts.emplace_back();
    }
  }
  return texts;
}

// Calls `visit` with each text that a filter of the type looks through.
template <typename Visit>
void ForEachText(std::int32_t type, const LDGRAccountEntry& entry, const std::string& made,
                 Visit visit) {
  if (type == 0 || type == 10) visit(entry.GetDescription());
  if (type == 0 || type == 11) visit(entry.GetToFrom());
  if (type == 0 || type == 12 || type == 14 || type == 15) visit(made);
  if (const auto& split = entry.GetSplit(); split != nullptr) {
    for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
      if (type == 0 || type == 71) visit(split->GetDescription(line));
      if (type == 0 || type == 70) visit(split->GetToFrom(line));
    }
  }
  if (type == 0 || type == 13) visit(entry.GetNotes());
}

void BM_Memmem(benchmark::State& state, std::int32_t type, std::string_view text) {
  const std::vector<std::string> made = MadeTexts(type == 0 ? 12 : type);
  const EntryList& entries = Account().GetEntries();
  for ([[maybe_unused]] auto _ : state) {
    int found = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      bool occurs = false;
      ForEachText(type, *entries[i], made[i], [&](const std::string& field) {
        occurs = occurs || memmem(field.data(), field.size(), text.data(), text.size()) != nullptr;
      });
      found += occurs ? 1 : 0;
    }
    benchmark::DoNotOptimize(found);
  }
}

void BM_Filter(benchmark::State& state, std::int32_t type, std::string_view text) {
  const LDGRAccount& account = Account();
  const auto filter = account.filterTypeAsLDGRFilter(type, text);
  std::size_t kept = 0;
  for ([[maybe_unused]] auto _ : state) {
    const EntryList entries = filter->Filter(account.GetEntries());
    kept = entries.size();
    benchmark::DoNotOptimize(entries.data());
  }
  state.counters["kept"] = static_cast<double>(kept);
}

// What applying any filter costs at least.
void BM_CopyOfTheList(benchmark::State& state) {
  const LDGRAccount& account = Account();
  for ([[maybe_unused]] auto _ : state) {
    const EntryList entries = account.GetEntries();
    benchmark::DoNotOptimize(entries.data());
  }
}

void RegisterAll() {
  benchmark::RegisterBenchmark("CopyOfTheList", BM_CopyOfTheList)->Unit(benchmark::kMillisecond);
  for (const FilterType& type : FilterTypes()) {
    const std::string name(type.name);
    if (type.rule != FilterType::Rule::SearchText) {
      benchmark::RegisterBenchmark(("Filter/" + name).c_str(), BM_Filter, type.number, "")
          ->Unit(benchmark::kMillisecond);
      continue;
    }
    const bool has_digits = type.number == 14 || type.number == 15;
    for (const char* text : has_digits ? kDigits : kTexts) {
      const std::string suffix = name + "/" + text;
      benchmark::RegisterBenchmark(("Memmem/" + suffix).c_str(), BM_Memmem, type.number, text)
          ->Unit(benchmark::kMillisecond);
      benchmark::RegisterBenchmark(("Filter/" + suffix).c_str(), BM_Filter, type.number, text)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

// Stands in the middle of the entries' days.
class MiddleClock final : public Clock {
 public:
  [[nodiscard]] Instant Now() const override { return {}; }
  [[nodiscard]] CivilTime LocalTime(Instant) const override { return {2010, 5, 20, 12, 0, 0}; }
  [[nodiscard]] Instant InstantOf(const CivilTime&) const override { return {}; }
};

MiddleClock clock_in_force;
const ScopedAmbient in_force({.clock = &clock_in_force});
const bool registered = (RegisterAll(), true);

}  // namespace
}  // namespace tallyfold::benchmarks
