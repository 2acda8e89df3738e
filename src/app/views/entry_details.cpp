#include "app/views/entry_details.h"

#include <utility>

#include "model/amounts.h"
#include "model/entry_split.h"
#include "model/entry_walk.h"
#include "registers/register_look.h"

namespace tallyfold {

EntryDetails DetailsOf(const LDGRAccountEntry* entry, const LDGRPreferences& preferences) {
  EntryDetails details;
  if (entry == nullptr) return details;
  details.notes = entry->GetNotes();
  details.is_tax_deductible = entry->GetTaxDeductible();
  const auto& split = entry->GetSplit();
  if (split == nullptr) return details;
  const bool is_paid = entry->IsDebit() && !entry->IsDeposit();
  for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
    SplitDetail detail{split->GetDescription(line), split->GetToFrom(line), split->GetAmount(line),
                       ""};
    if (detail == SplitDetail()) continue;
    if (is_paid) detail.amount = -detail.amount + 0.0;
    detail.amount_text = RegisterAmountText(detail.amount, preferences);
    details.split.push_back(std::move(detail));
  }
  return details;
}

EntriesSum SumOf(const EntryList& entries, const LDGRPreferences& preferences) {
  EntriesSum sum{entries.size(), 0.0, ""};
  WalkEntries(entries, [&sum](const LDGRAccountEntry& entry) { sum.amount += entry.GetAmount(); });
  sum.amount = RoundNearZeroValue(sum.amount);
  sum.amount_text = RegisterAmountText(sum.amount, preferences);
  return sum;
}

}  // namespace tallyfold
