#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tallyfold {

class LDGRAccount;
class LDGRAccountEntry;

// What an earlier entry of the same description has in the other fields.
struct EntrySuggestion {
  // Number of the entry type; -1 for none.
  std::int32_t type = -1;
  // "" for none.
  std::string to_from;
  // As the sheet shows it: positive for money paid or received.
  double amount = 0.0;

  friend bool operator==(const EntrySuggestion&, const EntrySuggestion&) = default;
};

// The last entered debit (else deposit) of an account for each description, gathered by a look at
// all entries and good until one of them changes. `except` is left out.
class FormerEntries {
 public:
  FormerEntries(const LDGRAccount& account, bool is_debit, const LDGRAccountEntry* except);

  // From the one of that description, ignoring case; none for "" and where there is none. An entry
  // with a split suggests no payee.
  [[nodiscard]] std::optional<EntrySuggestion> SuggestionFor(std::string_view description) const;

 private:
  bool is_debit_;
  // By what is written in the entries.
  std::unordered_map<std::string_view, const LDGRAccountEntry*> latest_;
};

}  // namespace tallyfold
