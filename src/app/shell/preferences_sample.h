#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

// What settings that are not in force yet would make of entries.
struct PreferencesSample {
  // Rows of the selected account's register.
  struct Row {
    std::shared_ptr<const LDGRAccountEntry> entry;
    TableCell date;
    TableCell description;
    TableCell to_from;
    TableCell amount;
    TableCell balance;
    RowLook look;
  };
  // A day and an amount; not the user's own.
  struct Format {
    std::string date;
    std::string amount;
    RowLook look;
    // Some of what is read as that day and that amount, with ", " between.
    std::string may_type;
  };

  std::vector<Row> rows;
  std::vector<Format> formats;
};

// An entry with the balance of its account after it.
struct SampledEntry {
  std::shared_ptr<const LDGRAccountEntry> entry;
  double balance = 0.0;
};

// The last few entries of the account by day; none for null.
[[nodiscard]] std::vector<SampledEntry> SampleEntries(const LDGRAccount* account);
[[nodiscard]] PreferencesSample SampleOf(const std::vector<SampledEntry>& entries,
                                         const LDGRPreferences& settings);

}  // namespace tallyfold
