#include <algorithm>
#include <iterator>

#include "model/account.h"
#include "model/account_lists.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Type = LDGRAccountEntryType;
using TypePointer = std::shared_ptr<Type>;

bool TypeComesBefore(const TypePointer& a, const TypePointer& b) {
  return a->NameIsGreaterThan(*b) < 0;
}

bool IsDebit(const Type& type) {
  return !type.GetIsDeposit() && !type.GetIsTransfer();
}

template <typename Matches>
EntryTypeList Select(const EntryTypeList& types, const Matches& matches) {
  EntryTypeList result;
  std::copy_if(types.begin(), types.end(), std::back_inserter(result),
               [&](const TypePointer& type) { return matches(*type); });
  return result;
}

// The first match in the lists, searched in turn.
template <typename Matches>
TypePointer FirstOf(const EntryTypeList& types, const EntryTypeList& inactive,
                    const Matches& matches) {
  for (const EntryTypeList* list : {&types, &inactive}) {
    for (const TypePointer& type : *list) {
      if (matches(*type)) return type;
    }
  }
  return nullptr;
}

TypePointer MakeType(std::int32_t number, std::string_view name, bool is_check, bool is_deposit,
                     bool is_transfer) {
  auto type = std::make_shared<Type>();
  type->SetNumber(number);
  type->SetName(name);
  type->SetIsCheck(is_check);
  type->SetIsDeposit(is_deposit);
  type->SetIsTransfer(is_transfer);
  return type;
}

}  // namespace

EntryTypeList LDGRAccount::DefaultTypes() {
  struct Row {
    std::string_view name;
    bool is_check;
    bool is_deposit;
  };
  static constexpr Row kRows[] = {
      {"Check", true, false},   {"Debit Card", false, false},    {"Online Payment", false, false},
      {"Deposit", false, true}, {"Direct Deposit", false, true}, {"Gift", false, true},
  };
  EntryTypeList types;
  for (const Row& row : kRows) {
    types.push_back(MakeType(static_cast<std::int32_t>(types.size()), LocalizedText(row.name),
                             row.is_check, row.is_deposit, false));
  }
  std::stable_sort(types.begin(), types.end(), TypeComesBefore);
  return types;
}

void LDGRAccount::SetTypes(EntryTypeList types) {
  std::erase(types, nullptr);
  std::stable_sort(types.begin(), types.end(), TypeComesBefore);
  types_ = std::move(types);
  DropForeignDefaultTypes();
  NoteChange(ChangeKind::Types);
}

void AccountLists::SortTypes(LDGRAccount& account) noexcept {
  if (account.types_)
    std::stable_sort(account.types_->begin(), account.types_->end(), TypeComesBefore);
}

void LDGRAccount::SetInactiveTypes(EntryTypeList types) {
  std::erase(types, nullptr);
  inactive_types_ = std::move(types);
  DropForeignDefaultTypes();
  NoteChange(ChangeKind::Types);
}

void LDGRAccount::DropForeignDefaultTypes() noexcept {
  for (TypePointer* type :
       {&default_debit_type_, &default_deposit_type_, &default_transfer_type_}) {
    const auto is_it = [type](const Type& candidate) { return &candidate == type->get(); };
    if (*type && !FirstOf(Types(), inactive_types_, is_it)) type->reset();
  }
}

void LDGRAccount::AddType(std::shared_ptr<LDGRAccountEntryType> type) {
  if (!type) return;
  const auto place = std::upper_bound(Types().begin(), Types().end(), type, TypeComesBefore);
  Types().insert(place, std::move(type));
  NoteChange(ChangeKind::Types);
}

EntryTypeList LDGRAccount::GetTransferTypes() const {
  return Select(Types(), [](const Type& type) { return type.GetIsTransfer(); });
}

EntryTypeList LDGRAccount::GetDepositTypes() const {
  return Select(Types(), [](const Type& type) { return type.GetIsDeposit(); });
}

EntryTypeList LDGRAccount::GetDebitTypes() const {
  return Select(Types(), IsDebit);
}

std::shared_ptr<LDGRAccountEntryType> LDGRAccount::AccountEntryTypeForNumber(
    std::int32_t number) const {
  return FirstOf(Types(), inactive_types_,
                 [number](const Type& type) { return type.GetNumber() == number; });
}

std::shared_ptr<LDGRAccountEntryType> LDGRAccount::DepositEntryTypeForName(
    std::string_view name) const {
  return FirstOf(Types(), inactive_types_, [name](const Type& type) {
    return type.GetIsDeposit() && type.GetName() == name;
  });
}

std::shared_ptr<LDGRAccountEntryType> LDGRAccount::DebitEntryTypeForName(
    std::string_view name) const {
  return FirstOf(Types(), inactive_types_, [name](const Type& type) {
    return !type.GetIsDeposit() && type.GetName() == name;
  });
}

void LDGRAccount::DeactivateType(std::shared_ptr<LDGRAccountEntryType> type) {
  if (!type) return;
  if (type == default_debit_type_) {
    default_debit_type_.reset();
  } else if (type == default_deposit_type_) {
    default_deposit_type_.reset();
  }
  std::erase(Types(), type);
  if (std::find(inactive_types_.begin(), inactive_types_.end(), type) == inactive_types_.end()) {
    inactive_types_.push_back(std::move(type));
  }
  NoteChange(ChangeKind::Types);
}

void LDGRAccount::SetDefaultDebitType(std::shared_ptr<LDGRAccountEntryType> type) noexcept {
  Change(default_debit_type_, std::move(type));
}

void LDGRAccount::SetDefaultDepositType(std::shared_ptr<LDGRAccountEntryType> type) noexcept {
  Change(default_deposit_type_, std::move(type));
}

void LDGRAccount::importTypesFromAccount(const LDGRAccount& other) {
  // A copy, because the other account may be this one.
  const EntryTypeList candidates = other.Types();
  for (const TypePointer& type : candidates) {
    const bool is_here =
        std::any_of(Types().begin(), Types().end(), [&type](const TypePointer& here) {
          return here->GetName() == type->GetName() &&
                 here->GetIsDeposit() == type->GetIsDeposit() &&
                 here->GetIsTransfer() == type->GetIsTransfer();
        });
    if (is_here) continue;
    AddType(MakeType(NextAvailableTypeNumber(), type->GetName(), type->GetIsCheck(),
                     type->GetIsDeposit(), type->GetIsTransfer()));
  }
}

}  // namespace tallyfold
