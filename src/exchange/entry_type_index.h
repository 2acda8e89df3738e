#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "model/account.h"
#include "model/entry_type.h"

namespace tallyfold {

// Finds entry types by exact name and kind, as LDGRAccount::DepositEntryTypeForName() and its twin
// do, however many types there are. The types' names must not change meanwhile.
class EntryTypeIndex {
 public:
  EntryTypeIndex() = default;
  // The account's active types, then the inactive ones; the first of a name counts.
  explicit EntryTypeIndex(const LDGRAccount& account) {
    for (const auto& type : account.GetTypes()) Add(type);
    for (const auto& type : account.GetInactiveTypes()) Add(type);
  }

  void Add(const std::shared_ptr<LDGRAccountEntryType>& type) {
    types_.try_emplace({type->GetName(), type->GetIsDeposit()}, type);
  }
  // Null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> Find(std::string_view name,
                                                           bool is_deposit) const {
    const auto found = types_.find({name, is_deposit});
    return found == types_.end() ? nullptr : found->second;
  }

 private:
  std::map<std::pair<std::string_view, bool>, std::shared_ptr<LDGRAccountEntryType>> types_;
};

}  // namespace tallyfold
