#include "app/entries/entry_suggestion.h"

#include "model/account.h"
#include "model/account_entry.h"
#include "model/text.h"

namespace tallyfold {

std::optional<EntrySuggestion> SuggestionFor(const LDGRAccount& account, bool is_debit,
                                             std::string_view description,
                                             const LDGRAccountEntry* except) {
  const CaselessNeedle wanted(description);
  if (wanted.empty()) return std::nullopt;
  const LDGRAccountEntry* latest = nullptr;
  for (const auto& entry : account.GetEntries()) {
    const bool is_of_kind = is_debit ? entry->IsDebit() : entry->IsDeposit() && !entry->IsDebit();
    if (!is_of_kind || entry.get() == except || !wanted.Equals(entry->GetDescription())) continue;
    if (latest == nullptr || entry->GetNumber() > latest->GetNumber()) latest = entry.get();
  }
  if (latest == nullptr) return std::nullopt;
  return EntrySuggestion{latest->GetType(),
                         latest->GetSplit() != nullptr ? "" : latest->GetToFrom(),
                         (is_debit ? -latest->GetAmount() : latest->GetAmount()) + 0.0};
}

}  // namespace tallyfold
