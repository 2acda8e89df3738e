#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/account_entry.h"
#include "storage/preferences.h"

namespace tallyfold {

// A line of an entry's split that holds anything.
struct SplitDetail {
  std::string description;
  std::string to_from;
  // Signed as the entry's own amount is, so that the lines add up to it.
  double amount = 0.0;
  // As the preferences want it.
  std::string amount_text;

  friend bool operator==(const SplitDetail&, const SplitDetail&) = default;
};

// What the columns of a register do not show of an entry.
struct EntryDetails {
  std::string notes;
  std::vector<SplitDetail> split;
  bool is_tax_deductible = false;

  [[nodiscard]] bool IsEmpty() const noexcept {
    return notes.empty() && split.empty() && !is_tax_deductible;
  }
};

// Nothing for null.
[[nodiscard]] EntryDetails DetailsOf(const LDGRAccountEntry* entry,
                                     const LDGRPreferences& preferences);

// So many entries and what they come to, as below a register and beside a selection.
struct EntriesSum {
  std::size_t count = 0;
  double amount = 0.0;
  std::string amount_text;
};

[[nodiscard]] EntriesSum SumOf(const EntryList& entries, const LDGRPreferences& preferences);

}  // namespace tallyfold
