#include "app/accounts/account_type_rows.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

using TypeRow = AccountEditSheetState::TypeRow;
using Typed = AccountEditSheetState::Typed;

std::int32_t RowOfType(const std::vector<TypeRow>& rows,
                       const std::shared_ptr<LDGRAccountEntryType>& type) {
  if (type == nullptr) return -1;
  const auto row = std::find_if(rows.begin(), rows.end(), [&type](const TypeRow& each) {
    return each.number == type->GetNumber();
  });
  return row == rows.end() ? -1 : static_cast<std::int32_t>(row - rows.begin());
}

void ForgetDefault(std::int32_t& row_of_default, std::size_t row) {
  if (row_of_default == static_cast<std::int32_t>(row)) row_of_default = -1;
}

bool ComesBefore(const std::shared_ptr<LDGRAccountEntryType>& a,
                 const std::shared_ptr<LDGRAccountEntryType>& b) {
  return a->NameIsGreaterThan(*b) < 0;
}

}  // namespace

AccountEditSheetState::TypeFate AccountEditSheetState::FateOf(const TypeRow& row) const {
  if (row.is_active) return TypeFate::InUse;
  const auto use = type_uses.find(row.number);
  if (use == type_uses.end()) return TypeFate::Goes;
  return use->second.is_referred_to || !use->second.was_active ? TypeFate::OutOfUse
                                                               : TypeFate::Goes;
}

std::size_t AccountEditSheetState::EntriesWith(const TypeRow& row) const {
  const auto use = type_uses.find(row.number);
  return use == type_uses.end() ? 0 : use->second.entries;
}

void PopulateTypes(AccountEditSheetState& state, const LDGRAccount& account) {
  auto& typed = state.typed;
  EntryTypeList types = account.GetTypes();
  for (const auto& type : types) state.type_uses[type->GetNumber()].was_active = true;
  for (const auto& type : account.GetInactiveTypes()) {
    // Where two have one number, entries get the active one.
    const auto [use, is_new] = state.type_uses.try_emplace(type->GetNumber());
    if (!is_new) continue;
    use->second.was_active = false;
    types.push_back(type);
  }
  std::ranges::stable_sort(types, [](const auto& a, const auto& b) {
    if (a->GetIsDeposit() != b->GetIsDeposit()) return b->GetIsDeposit();
    return ComesBefore(a, b);
  });
  for (const auto& type : types) {
    auto& use = state.type_uses[type->GetNumber()];
    use.name = type->GetName();
    use.is_deposit = type->GetIsDeposit();
    typed.types.push_back({type->GetNumber(), type->GetName(), type->GetIsCheck(),
                           type->GetIsDeposit(), use.was_active});
  }
  typed.default_debit_type = RowOfType(typed.types, account.GetDefaultDebitType());
  typed.default_deposit_type = RowOfType(typed.types, account.GetDefaultDepositType());

  std::unordered_map<std::int32_t, std::size_t> entries;
  for (const auto& entry : account.GetEntries()) ++entries[entry->GetType()];
  for (auto& [number, use] : state.type_uses) {
    const auto found = entries.find(number);
    if (found != entries.end()) use.entries = found->second;
    use.is_referred_to = use.entries > 0;
  }
  for (const auto& schedule : account.GetSchedules()) {
    const auto use = state.type_uses.find(schedule->GetType());
    if (use != state.type_uses.end()) use->second.is_referred_to = true;
  }
}

void SaveTypes(const AccountEditSheetState& state, LDGRAccount& account) {
  using TypeFate = AccountEditSheetState::TypeFate;
  const auto& typed = state.typed;
  std::unordered_map<std::int32_t, std::shared_ptr<LDGRAccountEntryType>> known;
  EntryTypeList active;
  EntryTypeList inactive;
  for (const auto& type : account.GetTypes()) known.try_emplace(type->GetNumber(), type);
  for (const auto& type : account.GetInactiveTypes()) {
    const bool has_row = known.try_emplace(type->GetNumber(), type).second;
    // Another has its number, and the row.
    if (!has_row) inactive.push_back(type);
  }
  EntryTypeList of_rows;
  for (const TypeRow& row : typed.types) {
    std::shared_ptr<LDGRAccountEntryType> type;
    if (const auto found = known.find(row.number); row.number >= 0 && found != known.end()) {
      type = std::move(found->second);
      known.erase(found);
    }
    const TypeFate fate = state.FateOf(row);
    if (fate != TypeFate::Goes) {
      if (type == nullptr) {
        type = std::make_shared<LDGRAccountEntryType>();
        type->SetNumber(account.NextAvailableTypeNumber());
        account.AddType(type);
      }
      type->SetName(row.name);
      type->SetIsCheck(row.is_check);
      type->SetIsDeposit(row.is_deposit);
      (fate == TypeFate::InUse ? active : inactive).push_back(type);
    }
    of_rows.push_back(fate == TypeFate::Goes ? nullptr : std::move(type));
  }
  // Those whose rows are gone, in the order of the account.
  for (const EntryTypeList* types : {&account.GetTypes(), &account.GetInactiveTypes()}) {
    for (const auto& type : *types) {
      const auto left = known.find(type->GetNumber());
      if (left == known.end() || left->second != type) continue;
      const auto use = state.type_uses.find(type->GetNumber());
      if (use != state.type_uses.end() && use->second.is_referred_to) inactive.push_back(type);
    }
  }
  // The order of those that stay out of use is the file's.
  EntryTypeList before = account.GetInactiveTypes();
  const auto place = [&before](const auto& type) {
    return std::find(before.begin(), before.end(), type) - before.begin();
  };
  std::ranges::stable_sort(inactive,
                           [&place](const auto& a, const auto& b) { return place(a) < place(b); });
  std::ranges::stable_sort(active, ComesBefore);
  const auto type_of_row = [&of_rows](std::int32_t row) {
    const bool is_row = row >= 0 && static_cast<std::size_t>(row) < of_rows.size();
    return is_row ? of_rows[static_cast<std::size_t>(row)] : nullptr;
  };
  account.SetTypes(std::move(active));
  account.SetInactiveTypes(std::move(inactive));
  account.SetDefaultDebitType(type_of_row(typed.default_debit_type));
  account.SetDefaultDepositType(type_of_row(typed.default_deposit_type));
}

std::int32_t RowOfDoubleType(const AccountEditSheetState& state) {
  const auto& rows = state.typed.types;
  std::map<std::pair<std::string_view, bool>, std::size_t> in_use;
  for (const TypeRow& row : rows) {
    if (row.is_active) ++in_use[{row.name, row.is_deposit}];
  }
  const auto found = std::ranges::find_if(rows, [&](const TypeRow& row) {
    if (!row.is_active || in_use[{row.name, row.is_deposit}] < 2) return false;
    const auto use = state.type_uses.find(row.number);
    // A file may hold what nobody would be let type.
    return use == state.type_uses.end() || !use->second.was_active ||
           use->second.name != row.name || use->second.is_deposit != row.is_deposit;
  });
  return found == rows.end() ? -1 : static_cast<std::int32_t>(found - rows.begin());
}

std::size_t InsertType(Typed& typed, std::int32_t below, std::string name) {
  TypeRow row;
  row.name = std::move(name);
  const bool is_row = below >= 0 && static_cast<std::size_t>(below) < typed.types.size();
  const std::size_t at = is_row ? static_cast<std::size_t>(below) + 1 : typed.types.size();
  if (is_row) {
    row.is_check = typed.types[at - 1].is_check;
    row.is_deposit = typed.types[at - 1].is_deposit;
  }
  typed.types.insert(typed.types.begin() + static_cast<std::ptrdiff_t>(at), std::move(row));
  for (std::int32_t* each : {&typed.default_debit_type, &typed.default_deposit_type}) {
    if (*each >= static_cast<std::int32_t>(at)) ++*each;
  }
  return at;
}

void TakeTypeOutOfUse(Typed& typed, std::size_t row) {
  typed.types[row].is_active = false;
  ForgetDefault(typed.default_debit_type, row);
  ForgetDefault(typed.default_deposit_type, row);
}

void BringTypeBack(Typed& typed, std::size_t row) {
  typed.types[row].is_active = true;
}

void SetKindOfType(Typed& typed, std::size_t row, bool is_check, bool is_deposit) {
  typed.types[row].is_check = is_check;
  typed.types[row].is_deposit = is_deposit;
  ForgetDefault(is_deposit ? typed.default_debit_type : typed.default_deposit_type, row);
}

}  // namespace tallyfold
