#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

// From the last entered debit (else deposit) of that description, ignoring case, other than
// `except`; none for "" and where there is no such entry. An entry with a split suggests no payee.
[[nodiscard]] std::optional<EntrySuggestion> SuggestionFor(const LDGRAccount& account,
                                                           bool is_debit,
                                                           std::string_view description,
                                                           const LDGRAccountEntry* except);

}  // namespace tallyfold
