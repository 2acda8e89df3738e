#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "exchange/export_options.h"
#include "model/account_entry.h"
#include "model/date_number.h"

namespace tallyfold {

class LDGRAccount;

// The entries an export writes: those the filter passes, or all, by date, checks first.
[[nodiscard]] EntryList ExportedEntries(const LDGRAccount& account, const ExportOptions& options);

// The day of an account's opening line: that of its first entry, today without entries.
[[nodiscard]] DateNumber OpeningDate(const LDGRAccount& account);

// Days as text in one format. Entries come sorted by day, so the last text is kept.
class DayTexts {
 public:
  explicit DayTexts(std::string format) : format_(std::move(format)) {}
  // Holds until the next call.
  [[nodiscard]] const std::string& Text(DateNumber day);

 private:
  std::string format_;
  std::optional<DateNumber> day_;
  std::string text_;
};

// Names of an account's own entry types, "" for a number that names none. Refers to the account.
class EntryTypeNames {
 public:
  explicit EntryTypeNames(const LDGRAccount& account) : account_(account) {}
  // Holds as long as the object lives.
  [[nodiscard]] const std::string& Name(std::int32_t number);

 private:
  const LDGRAccount& account_;
  std::unordered_map<std::int32_t, std::string> names_;
};

}  // namespace tallyfold
