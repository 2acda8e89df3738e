#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/account_entry.h"
#include "model/text_numbers.h"
#include "summaries/kept_texts.h"
#include "summaries/summary_result.h"

namespace tallyfold {

class LDGRAccount;

// Adds up the subtotals of one kind, period after period, and of all periods together. Each name is
// looked up once for an entry, however many periods there are.
class SubtotalTally {
 public:
  // `name` must outlive the tally.
  void Add(std::string_view name, double amount);
  // Ends the period and gives its subtotals; adds them to those under the same names in `whole`,
  // which is always the same. Names come to be kept by `names`.
  [[nodiscard]] Subtotals EndPeriod(Subtotals& whole, KeptTexts& names);

 private:
  // By the number of the name.
  struct Place {
    std::uint64_t period = 0;  // the last period with the name, counted from 1
    std::uint32_t line = 0;    // its line in that one
    std::uint32_t line_in_whole = 0;
  };
  struct Line {
    std::uint32_t number = 0;  // of the name
    std::string_view name;
    double amount = 0.0;
    std::size_t count = 0;
  };

  TextNumbers names_;
  std::vector<Place> places_;
  std::uint64_t period_ = 1;
  std::vector<Line> lines_;  // of this period
};

// The names under which entries are added up by their types: "" for none, and one for all
// transfers, in the user's language.
class TypeNames {
 public:
  // Types are looked up in the account, which may be null and must outlive this.
  explicit TypeNames(const LDGRAccount* account);
  // Valid as long as this.
  [[nodiscard]] std::string_view Of(const LDGRAccountEntry& entry);

 private:
  const LDGRAccount* account_;
  std::string transfer_;
  std::unordered_map<std::int32_t, std::string> names_;
};

// Which subtotals are formed.
struct SubtotalKinds {
  bool types = false;
  bool descriptions = false;
  bool to_froms = false;
};

// Adds up entries, period after period, and all periods together.
class SummaryTally {
 public:
  // Types are looked up in the account, which may be null. It and all entries must outlive this.
  SummaryTally(const SubtotalKinds& kinds, const LDGRAccount* account);
  SummaryTally(const SummaryTally&) = delete;
  SummaryTally& operator=(const SummaryTally&) = delete;

  void Add(const LDGRAccountEntry& entry);
  // The sums of what was added since the period before; adds them to those of all periods. The days
  // are left to the caller.
  [[nodiscard]] PeriodSubtotals EndPeriod();
  // The sums of all periods that have ended.
  [[nodiscard]] PeriodSubtotals TakeWhole() noexcept { return std::move(whole_); }

 private:
  SubtotalKinds kinds_;
  TypeNames type_names_;
  SubtotalTally types_;
  SubtotalTally descriptions_;
  SubtotalTally to_froms_;
  std::shared_ptr<KeptTexts> names_ = std::make_shared<KeptTexts>();
  PeriodSubtotals period_;
  PeriodSubtotals whole_;
};

}  // namespace tallyfold
