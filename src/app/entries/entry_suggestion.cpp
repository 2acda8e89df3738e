#include "app/entries/entry_suggestion.h"

#include "model/account.h"
#include "model/account_entry.h"
#include "model/text.h"

namespace tallyfold {

FormerEntries::FormerEntries(const LDGRAccount& account, bool is_debit,
                             const LDGRAccountEntry* except)
    : is_debit_(is_debit) {
  for (const auto& entry : account.GetEntries()) {
    const bool is_of_kind = is_debit ? entry->IsDebit() : entry->IsDeposit() && !entry->IsDebit();
    if (!is_of_kind || entry.get() == except) continue;
    const LDGRAccountEntry*& latest = latest_[entry->GetDescription()];
    if (latest == nullptr || entry->GetNumber() > latest->GetNumber()) latest = entry.get();
  }
}

std::optional<EntrySuggestion> FormerEntries::SuggestionFor(std::string_view description) const {
  const CaselessNeedle wanted(description);
  if (wanted.empty()) return std::nullopt;
  const LDGRAccountEntry* latest = nullptr;
  for (const auto& [spelling, entry] : latest_) {
    if (!wanted.Equals(spelling)) continue;
    if (latest == nullptr || entry->GetNumber() > latest->GetNumber()) latest = entry;
  }
  if (latest == nullptr) return std::nullopt;
  return EntrySuggestion{latest->GetType(),
                         latest->GetSplit() != nullptr ? "" : latest->GetToFrom(),
                         (is_debit_ ? -latest->GetAmount() : latest->GetAmount()) + 0.0};
}

}  // namespace tallyfold
