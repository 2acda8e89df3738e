#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"

namespace tallyfold {

// What tests of accounts say about an entry; the rest is as in a new one.
struct EntryFields {
  enum Kind { Debit, Deposit, Transfer };

  std::int32_t number = -1;
  DateNumber date = 20040301;
  double amount = 0.0;
  std::int32_t check = -1;  // 0 and more make a check
  Kind kind = Debit;
  std::string_view description = "";
  std::string_view to_from = "";
  bool cleared = false;
};

inline std::shared_ptr<LDGRAccountEntry> MakeEntry(const EntryFields& fields) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetNumber(fields.number);
  entry->SetDate(fields.date);
  entry->SetAmount(fields.amount);
  entry->SetCheckNumber(fields.check);
  entry->SetIsCheck(fields.check >= 0);
  entry->SetIsDebit(fields.kind == EntryFields::Debit);
  entry->SetIsDeposit(fields.kind == EntryFields::Deposit);
  entry->SetIsTransfer(fields.kind == EntryFields::Transfer);
  entry->SetDescription(fields.description);
  entry->SetToFrom(fields.to_from);
  entry->SetCleared(fields.cleared);
  return entry;
}

inline void AddEntries(LDGRAccount& account, const std::vector<EntryFields>& entries) {
  for (const EntryFields& fields : entries) account.AddEntry(MakeEntry(fields));
}

inline std::vector<std::int32_t> NumbersOf(const EntryList& entries) {
  std::vector<std::int32_t> numbers;
  for (const auto& entry : entries) numbers.push_back(entry->GetNumber());
  return numbers;
}

inline std::shared_ptr<LDGRAccountEntryType> MakeType(std::int32_t number, std::string_view name,
                                                      bool is_deposit = false,
                                                      bool is_transfer = false) {
  auto type = std::make_shared<LDGRAccountEntryType>();
  type->SetNumber(number);
  type->SetName(name);
  type->SetIsDeposit(is_deposit);
  type->SetIsTransfer(is_transfer);
  return type;
}

inline TextList NamesOf(const EntryTypeList& types) {
  TextList names;
  for (const auto& type : types) names.push_back(type->GetName());
  return names;
}

}  // namespace tallyfold
