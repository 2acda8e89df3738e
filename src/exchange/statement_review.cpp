#include "exchange/statement_review.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "model/account.h"
#include "model/text.h"

namespace tallyfold {
namespace {

using TypePointer = std::shared_ptr<LDGRAccountEntryType>;

// The types that payees have, by direction.
class TypesOfPayees {
 public:
  explicit TypesOfPayees(const LDGRAccount& account) {
    std::unordered_map<std::int32_t, TypePointer> types;
    for (const auto& type : account.GetTypes()) types.try_emplace(type->GetNumber(), type);
    for (const auto& entry : account.GetEntries()) {
      if (entry->IsTransfer() || entry->GetToFrom().empty()) continue;
      const auto found = types.find(entry->GetType());
      if (found == types.end()) continue;
      const TypePointer& type = found->second;
      if (type->GetIsTransfer() || type->GetIsDeposit() != entry->IsDeposit()) continue;
      Newest& newest = newest_[KeyOf(entry->GetToFrom(), entry->IsDeposit())];
      if (newest.type != nullptr && entry->GetDate() < newest.day) continue;
      newest = {entry->GetDate(), type};
    }
  }

  // Null for none.
  [[nodiscard]] TypePointer Find(const std::string& payee, bool is_deposit) const {
    const auto found = newest_.find(KeyOf(payee, is_deposit));
    return found == newest_.end() ? nullptr : found->second.type;
  }

 private:
  struct Newest {
    DateNumber day = 0;
    TypePointer type;
  };
  [[nodiscard]] static std::string KeyOf(const std::string& payee, bool is_deposit) {
    return (is_deposit ? '+' : '-') + FoldCase(payee);
  }

  std::unordered_map<std::string, Newest> newest_;
};

std::shared_ptr<LDGRQIFImportEntry> EntryOfRow(const StatementRow& row, bool zero_is_deposit) {
  auto entry = std::make_shared<LDGRQIFImportEntry>();
  entry->SetDescription(row.description);
  entry->SetToFrom(row.to_from);
  entry->SetNotes(row.notes);
  entry->SetCleared(row.is_cleared);
  entry->SetDate(row.day.value_or(0));
  const double amount = row.amount.value_or(0.0);
  entry->SetAmount(amount);
  const bool is_deposit = amount > 0 || (amount == 0 && zero_is_deposit);
  if (is_deposit) {
    entry->SetIsDeposit(true);
  } else {
    entry->SetIsDebit(true);
  }
  if (row.check_number) entry->SetCheckNumber(*row.check_number);
  entry->SetIsCheck(!is_deposit && row.check_number.has_value());
  entry->SetImport(row.unmarked == UnmarkedReason::None);
  entry->SetUnmarkedReason(row.unmarked);
  return entry;
}

}  // namespace

QifImportEntryList ReviewEntriesOf(const std::vector<StatementRow>& rows,
                                   const LDGRAccount& account,
                                   const StatementReviewOptions& options) {
  const TypesOfPayees types(account);
  QifImportEntryList entries;
  entries.reserve(rows.size());
  for (const StatementRow& row : rows) {
    auto entry = EntryOfRow(row, options.zero_amounts_as_deposits);
    if (options.suggests_types && !row.to_from.empty()) {
      if (auto type = types.Find(row.to_from, entry->IsDeposit())) {
        entry->SetType(type->GetNumber());
        entry->SetActualType(std::move(type));
      }
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tallyfold
